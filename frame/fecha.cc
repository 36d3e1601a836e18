#include <array>
#include <cstdio>

#include "kvraedi/error.h"
#include "kvraedi/valor.h"

namespace kvraedi {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes `least` to `most` digits off the front.
bool TakeNumber(std::string_view& text, std::size_t least, std::size_t most, int& value) {
  std::size_t count = 0;
  value = 0;
  while (count < most && count < text.size() && IsDigit(text[count])) {
    value = value * 10 + (text[count++] - '0');
  }
  text.remove_prefix(count);
  return count >= least;
}

bool TakeMark(std::string_view& text, char mark) {
  if (text.empty() || text.front() != mark) return false;
  text.remove_prefix(1);
  return true;
}

struct Parts {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

bool TakeDate(std::string_view& text, Parts& parts) {
  if (text.size() > 2 && (text[1] == '/' || text[2] == '/')) {
    return TakeNumber(text, 1, 2, parts.day) && TakeMark(text, '/') &&
           TakeNumber(text, 1, 2, parts.month) && TakeMark(text, '/') &&
           TakeNumber(text, 4, 4, parts.year);
  }
  if (!TakeNumber(text, 4, 4, parts.year)) return false;
  if (TakeMark(text, '-')) {
    return TakeNumber(text, 1, 2, parts.month) && TakeMark(text, '-') &&
           TakeNumber(text, 1, 2, parts.day);
  }
  return TakeNumber(text, 2, 2, parts.month) && TakeNumber(text, 2, 2, parts.day);
}

bool TakeTime(std::string_view& text, Parts& parts) {
  if (text.empty()) return true;
  if (!TakeMark(text, ' ') && !TakeMark(text, 'T')) return false;
  if (!TakeNumber(text, 1, 2, parts.hour) || !TakeMark(text, ':') ||
      !TakeNumber(text, 2, 2, parts.minute)) {
    return false;
  }
  if (!TakeMark(text, ':')) return true;
  if (!TakeNumber(text, 2, 2, parts.second)) return false;
  int fraction = 0;
  return !TakeMark(text, '.') || TakeNumber(text, 1, 9, fraction);
}

bool IsLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) {
  constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && IsLeap(year) ? 1 : 0);
}

bool IsPossible(const Parts& p) {
  return p.year >= 1 && p.month >= 1 && p.month <= 12 && p.day >= 1 &&
         p.day <= DaysInMonth(p.year, p.month) && p.hour < 24 && p.minute < 60 && p.second < 60;
}

FechaHora FromParts(const Parts& p) {
  return {static_cast<std::int16_t>(p.year),  static_cast<std::int8_t>(p.month),
          static_cast<std::int8_t>(p.day),    static_cast<std::int8_t>(p.hour),
          static_cast<std::int8_t>(p.minute), static_cast<std::int8_t>(p.second)};
}

/// Days since 01/01/0001, by counting leap days of the years before.
std::int64_t DayNumber(int year, int month, int day) {
  const std::int64_t y = year - 1;
  std::int64_t days = y * 365 + y / 4 - y / 100 + y / 400 + day - 1;
  for (int m = 1; m < month; ++m) days += DaysInMonth(year, m);
  return days;
}

Parts FromDayNumber(std::int64_t days) {
  Parts parts;
  parts.year = static_cast<int>(days / 366 + 1);
  while (DayNumber(parts.year + 1, 1, 1) <= days) ++parts.year;
  days -= DayNumber(parts.year, 1, 1);
  parts.month = 1;
  for (; days >= DaysInMonth(parts.year, parts.month); ++parts.month) {
    days -= DaysInMonth(parts.year, parts.month);
  }
  parts.day = static_cast<int>(days) + 1;
  return parts;
}

}  // namespace

std::optional<FechaHora> FechaHora::Parse(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  if (text.empty()) return FechaHora{1900, 1, 1};
  Parts parts;
  if (!TakeDate(text, parts) || !TakeTime(text, parts) || !text.empty() || !IsPossible(parts)) {
    return std::nullopt;
  }
  return FromParts(parts);
}

std::string FechaHora::ToIso() const {
  std::array<char, 32> text{};
  const int length =
      HasTime() ? std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", year,
                                month, day, hour, minute, second)
                : std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
  return {text.data(), static_cast<std::size_t>(length)};
}

FechaHora FechaHora::PlusSeconds(std::int64_t seconds) const {
  constexpr std::int64_t kHour = 3600;
  constexpr std::int64_t kMinute = 60;
  constexpr std::int64_t kDay = 24 * kHour;
  const std::int64_t total =
      DayNumber(year, month, day) * kDay + hour * kHour + minute * kMinute + second + seconds;
  if (total < 0 || total >= DayNumber(10000, 1, 1) * kDay) ThrowOverflow();
  Parts parts = FromDayNumber(total / kDay);
  const int time = static_cast<int>(total % kDay);
  parts.hour = time / 3600;
  parts.minute = time / 60 % 60;
  parts.second = time % 60;
  return FromParts(parts);
}

}  // namespace kvraedi
