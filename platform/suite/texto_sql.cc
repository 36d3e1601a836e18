#include "platform/suite/texto_sql.h"

#include <charconv>

namespace kvraedi::suite {

std::string_view Recortar(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<std::int32_t> Entero(std::string_view text) {
  std::int32_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

std::string Contiene(std::string_view columna, std::string_view text) {
  constexpr std::string_view kWildcards = "!%_[";
  std::string condition(columna);
  condition += " LIKE '%";
  for (const char c : text) {
    if (kWildcards.find(c) != std::string_view::npos) condition += '!';
    if (c == '\'') condition += '\'';
    condition += c;
  }
  return condition + "%' ESCAPE '!'";
}

}  // namespace kvraedi::suite
