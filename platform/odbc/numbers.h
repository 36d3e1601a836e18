#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvraedi::odbc {

/// `text` without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// A text as a number, blanks around it aside; raises when it is none. Halves go to the even
/// neighbour.
std::int64_t IntegerOf(std::string_view text);
std::int64_t IntegerOf(double value);
double RealOf(std::string_view text);

/// A driver's decimal as the component writes numbers: "-.5000" is "-0.5".
std::string PlainDecimal(std::string_view text);
/// A number as text: 15 significant digits, without exponent from 1e-15 up to 1e15.
std::string RealText(double value);

}  // namespace kvraedi::odbc
