#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "kvraedi/error.h"
#include "kvraedi/valor.h"

namespace kvraedi {

Currency Currency::FromInteger(std::int64_t value) {
  std::int64_t units = 0;
  if (__builtin_mul_overflow(value, kScale, &units)) ThrowOverflow();
  return Currency(units);
}

Currency Currency::FromDouble(double value) {
  constexpr double kFifteenDigitsLoseDecimals = 1e11;
  std::array<char, 32> text{};
  char* const last = text.data() + text.size();
  const auto [end, error] =
      std::fabs(value) < kFifteenDigitsLoseDecimals
          ? std::to_chars(text.data(), last, value, std::chars_format::scientific, 14)
          : std::to_chars(text.data(), last, value, std::chars_format::fixed);
  const auto parsed = error == std::errc{}
                          ? Parse({text.data(), static_cast<std::size_t>(end - text.data())})
                          : std::nullopt;
  if (!parsed) ThrowOverflow();
  return *parsed;
}

namespace {

struct Decimal {
  bool negative = false;
  std::uint64_t digits = 0;  // the value is digits * 10^exponent
  int exponent = 0;
  bool any = false;
};

/// Reads "[sign]digits[.digits]"; keeps 19 significant digits, which is more than the type holds.
Decimal ReadMantissa(std::string_view& text) {
  Decimal number;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    number.negative = text.front() == '-';
    text.remove_prefix(1);
  }
  bool fraction = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char c = text.front();
    if (c == '.' && !fraction) {
      fraction = true;
    } else if (c >= '0' && c <= '9') {
      number.any = true;
      const bool full = number.digits > std::numeric_limits<std::uint64_t>::max() / 10 - 1;
      if (!full) number.digits = number.digits * 10 + static_cast<std::uint64_t>(c - '0');
      number.exponent += (full ? 1 : 0) - (fraction ? 1 : 0);
    } else {
      break;
    }
  }
  return number;
}

/// Reads "e[sign]digits", which must end the text.
bool ReadExponent(std::string_view text, int& exponent) {
  if (text.empty()) return true;
  if (text.front() != 'e' && text.front() != 'E') return false;
  text.remove_prefix(1);
  if (text.size() > 1 && text.front() == '+') text.remove_prefix(1);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return false;
  if (value > 1000 || value < -1000) return false;
  exponent += value;
  return true;
}

}  // namespace

std::optional<Currency> Currency::Parse(std::string_view text) {
  Decimal number = ReadMantissa(text);
  if (!number.any || !ReadExponent(text, number.exponent)) return std::nullopt;
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  std::uint64_t units = number.digits;
  int shift = number.exponent + 4;
  for (; shift > 0 && units != 0; --shift) {
    if (units > kMax / 10) ThrowOverflow();
    units *= 10;
  }
  for (; shift < -1 && units != 0; ++shift) units /= 10;
  if (shift < 0) units = units / 10 + (units % 10 >= 5 ? 1 : 0);
  if (units > kMax) ThrowOverflow();
  const auto magnitude = static_cast<std::int64_t>(units);
  return Currency(number.negative ? -magnitude : magnitude);
}

double Currency::ToDouble() const {
  return static_cast<double>(units_) / static_cast<double>(kScale);
}

Currency operator+(Currency a, Currency b) {
  std::int64_t units = 0;
  if (__builtin_add_overflow(a.units_, b.units_, &units)) ThrowOverflow();
  return Currency(units);
}

Currency operator-(Currency a, Currency b) {
  std::int64_t units = 0;
  if (__builtin_sub_overflow(a.units_, b.units_, &units)) ThrowOverflow();
  return Currency(units);
}

}  // namespace kvraedi
