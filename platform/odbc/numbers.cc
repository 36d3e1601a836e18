#include "platform/odbc/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "kvraedi/error.h"

namespace kvraedi::odbc {
namespace {

constexpr int kDigits = 15;

template <class T>
std::optional<T> Read(std::string_view text) {
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string_view Number(std::string_view text) {
  text = WithoutBlanks(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

void DropZeros(std::string& text) {
  if (text.find('.') == std::string::npos) return;
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
}

}  // namespace

std::string_view WithoutBlanks(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

std::int64_t IntegerOf(std::string_view text) {
  if (const auto value = Read<std::int64_t>(Number(text))) return *value;
  return IntegerOf(RealOf(text));
}

std::int64_t IntegerOf(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -kLimit && rounded < kLimit)) ThrowOverflow();
  return static_cast<std::int64_t>(rounded);
}

double RealOf(std::string_view text) {
  const auto value = Read<double>(Number(text));
  if (!value || !std::isfinite(*value)) ThrowTypeMismatch();
  return *value;
}

std::string PlainDecimal(std::string_view text) {
  std::string plain(WithoutBlanks(text));
  const std::size_t first = plain.starts_with('-') ? 1 : 0;
  if (plain.size() > first && plain[first] == '.') plain.insert(first, 1, '0');
  DropZeros(plain);
  return plain == "-0" ? "0" : plain;
}

std::string RealText(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  std::array<char, 64> text{};
  const auto write = [&](std::chars_format format, int places) {
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format, places);
    return std::string(text.data(), end.ptr);
  };
  std::string written = write(std::chars_format::scientific, kDigits - 1);
  const std::size_t mark = written.find('e');
  const int power = static_cast<int>(IntegerOf(std::string_view(written).substr(mark + 1)));
  if (power >= -kDigits && power < kDigits) {
    written = write(std::chars_format::fixed, kDigits - 1 - power);
    DropZeros(written);
    return written;
  }
  written.resize(mark);
  DropZeros(written);
  return written + (power < 0 ? "E" : "E+") + std::to_string(power);
}

}  // namespace kvraedi::odbc
