#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "kvraedi/export.h"

namespace kvraedi {

/// Fixed-point decimal with four decimals in 64 bits, exact: the suite's money type.
/// Every operation that leaves the range raises "Desbordamiento".
class KVRAEDI_API Currency {
 public:
  static constexpr std::int64_t kScale = 10000;

  constexpr Currency() = default;
  /// `units` are ten-thousandths: FromUnits(12345) is 1.2345.
  static constexpr Currency FromUnits(std::int64_t units) { return Currency(units); }
  static Currency FromInteger(std::int64_t value);
  /// The value's 15 significant decimal digits, taken to four decimals half away from zero; from
  /// 1e11 on, where those do not reach the fourth decimal, the shortest text that reads back.
  static Currency FromDouble(double value);
  /// Plain decimal text with a point ("-12.5", ".5", "1e3"), taken to four decimals half away from
  /// zero; nothing when the text is not a number. Out of range raises.
  static std::optional<Currency> Parse(std::string_view text);

  constexpr std::int64_t Units() const { return units_; }
  double ToDouble() const;

  friend KVRAEDI_API Currency operator+(Currency a, Currency b);
  friend KVRAEDI_API Currency operator-(Currency a, Currency b);
  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  constexpr explicit Currency(std::int64_t units) : units_(units) {}
  std::int64_t units_ = 0;
};

/// A date with a time of day to the second, proleptic Gregorian, years 1 to 9999, no time zone.
/// The default value is 30/12/1899 00:00:00, the day zero of the suite's dates.
struct KVRAEDI_API FechaHora {
  std::int16_t year = 1899;
  std::int8_t month = 12;
  std::int8_t day = 30;
  std::int8_t hour = 0;
  std::int8_t minute = 0;
  std::int8_t second = 0;

  /// Reads the texts that the database takes for a date: "dd/mm/yyyy", "yyyymmdd" and
  /// "yyyy-mm-dd" (a "T" or a blank before the time), each followed or not by "hh:mm[:ss[.fff]]"
  /// (fractions are dropped), and the empty text, which is 01/01/1900. Day, month and hour may have
  /// one digit where a mark follows them. Nothing when the text is no date or an impossible one.
  static std::optional<FechaHora> Parse(std::string_view text);
  /// "yyyy-mm-dd", followed by " hh:mm:ss" when the time is not midnight: ordered as text.
  std::string ToIso() const;
  bool HasTime() const { return hour != 0 || minute != 0 || second != 0; }
  /// Moves the value; `seconds` may be negative.
  FechaHora PlusSeconds(std::int64_t seconds) const;

  friend auto operator<=>(const FechaHora&, const FechaHora&) = default;
};

/// A value whose type is known only when it is read. std::monostate is the null.
using Valor =
    std::variant<std::monostate, bool, std::int64_t, double, Currency, FechaHora, std::string>;

}  // namespace kvraedi
