#include "platform/sqlite/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace kvraedi::sqlite {
namespace {

constexpr int kDigits = 15;

/// The value is 0.d1d2d3... * 10^point, with kDigits digits.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

Decimal ToDecimal(double value) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                    std::chars_format::scientific, kDigits - 1);
  const std::string_view written(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
  Decimal decimal;
  decimal.negative = std::signbit(value) && value != 0;
  decimal.digits = written[0];
  decimal.digits += written.substr(2, kDigits - 1);
  const std::size_t exponent = written.find('e') + 1;
  int power = 0;
  std::from_chars(written.data() + exponent + 1, written.data() + written.size(), power);
  decimal.point = (written[exponent] == '-' ? -power : power) + 1;
  return decimal;
}

std::string Fixed(const Decimal& decimal) {
  if (decimal.point <= 0) {
    return "0." + std::string(static_cast<std::size_t>(-decimal.point), '0') + decimal.digits;
  }
  std::string text = decimal.digits;
  const auto point = static_cast<std::size_t>(decimal.point);
  if (text.size() <= point) return text.append(point - text.size(), '0');
  return text.insert(point, 1, '.');
}

std::string Scientific(const Decimal& decimal) {
  std::string text = decimal.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  const int power = decimal.point - 1;
  return text + (power < 0 ? "E-" : "E+") + std::to_string(std::abs(power));
}

void Increment(Decimal& decimal) {
  for (std::size_t i = decimal.digits.size(); i-- > 0;) {
    if (decimal.digits[i] != '9') {
      ++decimal.digits[i];
      return;
    }
    decimal.digits[i] = '0';
  }
  decimal.digits.insert(0, 1, '1');
  ++decimal.point;
}

template <class T>
std::optional<T> Parse(std::string_view text) {
  text = Trimmed(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

std::optional<std::int64_t> ParseInteger(std::string_view text) {
  return Parse<std::int64_t>(text);
}

std::optional<double> ParseReal(std::string_view text) {
  const auto value = Parse<double>(text);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::string RealText(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  Decimal decimal = ToDecimal(value);
  while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
  const bool usual = decimal.point > -kDigits && decimal.point <= kDigits;
  return (decimal.negative ? "-" : "") + (usual ? Fixed(decimal) : Scientific(decimal));
}

double RoundDecimal(double value, int places) {
  if (value == 0 || !std::isfinite(value)) return value;
  Decimal decimal = ToDecimal(value);
  const int kept = decimal.point + places;
  if (kept >= kDigits) return value;
  if (kept < 0) return 0;
  const bool up = decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(kept));
  if (up) Increment(decimal);
  if (decimal.digits.empty()) return 0;
  const std::string text =
      (decimal.negative ? "-0." : "0.") + decimal.digits + "e" + std::to_string(decimal.point);
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

}  // namespace kvraedi::sqlite
