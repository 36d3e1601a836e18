#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvraedi::sqlite {

/// `text` without the blanks around it.
std::string_view Trimmed(std::string_view text);

/// The whole of `text`, blanks around it aside, as a number; nothing when it is not one.
std::optional<std::int64_t> ParseInteger(std::string_view text);
std::optional<double> ParseReal(std::string_view text);

/// A number as text: 15 significant digits, without exponent from 1e-15 up to 1e15.
std::string RealText(double value);

/// The 15 significant digits of `value` rounded to `places` decimals, halves away from zero.
double RoundDecimal(double value, int places);

}  // namespace kvraedi::sqlite
