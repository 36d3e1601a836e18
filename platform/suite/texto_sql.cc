#include "platform/suite/texto_sql.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace kvraedi::suite {

std::string_view Recortar(std::string_view text, std::string_view blancos) {
  const auto first = text.find_first_not_of(blancos);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blancos) - first + 1);
}

char Minuscula(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool MismoNombre(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Minuscula(x) == Minuscula(y); });
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

std::string Literal(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) {
    if (c == '\'') literal += '\'';
    literal += c;
  }
  return literal + "'";
}

std::string Literal(const FechaHora& fecha) {
  std::string text = fecha.ToIso();
  std::erase(text, '-');
  return "'" + text + "'";
}

std::string Literal(Currency valor) {
  constexpr std::int64_t kEscala = Currency::kScale;
  const std::int64_t entero = valor.Units() / kEscala;
  const std::string decimales = std::to_string(std::abs(valor.Units() % kEscala) + kEscala);
  const char* const signo = valor.Units() < 0 && entero == 0 ? "-" : "";
  return signo + std::to_string(entero) + "." + decimales.substr(1);
}

}  // namespace kvraedi::suite
