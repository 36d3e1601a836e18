#include "platform/sqlite/column_value.h"

#include <cmath>
#include <cstdlib>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/numbers.h"

namespace kvraedi::sqlite {
namespace {

using Type = LiteralValue::Type;

[[noreturn]] void Throw(std::string description) {
  throw Error(kErrorDatabase, "SQLite", std::move(description));
}

[[noreturn]] void ThrowImpossible(std::string_view text, const char* kind) {
  Throw("La conversión del texto '" + std::string(text) + "' en " + kind + " no es posible.");
}

[[noreturn]] void ThrowTooBig(const ColumnType& type, std::string_view text) {
  Throw("Error de desbordamiento aritmético para el tipo de datos " + Written(type) +
        ", valor = " + std::string(text) + ".");
}

[[noreturn]] void ThrowTruncated(const Column& column, std::string_view text) {
  Throw("Los datos de cadena o binarios se truncarían en la tabla '" + column.table +
        "', columna '" + column.label + "'. Valor truncado: '" + std::string(text) + "'.");
}

LiteralValue IntegerValue(std::int64_t integer) {
  LiteralValue value;
  value.type = Type::kInteger;
  value.integer = integer;
  return value;
}

LiteralValue RealValue(double real) {
  LiteralValue value;
  value.type = Type::kReal;
  value.real = real;
  return value;
}

LiteralValue DateValue(const FechaHora& date) {
  LiteralValue value;
  value.owned = date.ToIso();
  return value;
}

bool HasExponent(std::string_view text) {
  return text.find_first_of("eE") != std::string_view::npos;
}

double RealOf(std::string_view text) {
  const auto real = ParseReal(text);
  if (!real) ThrowImpossible(text, "número");
  return *real;
}

/// A text must be a whole number; a number loses its decimals.
LiteralValue WholeNumber(const ColumnType& type, std::string_view text, bool is_text) {
  constexpr double kLimit = 9223372036854775808.0;
  auto integer = Trimmed(text).empty() ? 0 : ParseInteger(text);
  if (!integer) {
    const double real = std::trunc(RealOf(text));
    if (!(real >= -kLimit && real < kLimit)) ThrowTooBig(type, text);
    if (is_text && text.find_first_of(".eE") != std::string_view::npos) {
      ThrowImpossible(text, "número entero");
    }
    integer = static_cast<std::int64_t>(real);
  }
  if (*integer < type.sql->low || *integer > type.sql->high) ThrowTooBig(type, text);
  return IntegerValue(*integer);
}

LiteralValue Bit(std::string_view text) {
  const std::string_view word = Trimmed(text);
  if (Same(word, "TRUE")) return IntegerValue(1);
  if (word.empty() || Same(word, "FALSE")) return IntegerValue(0);
  return IntegerValue(RealOf(text) != 0 ? 1 : 0);
}

LiteralValue Decimal(const ColumnType& type, std::string_view text, bool is_text) {
  const std::string_view number = Trimmed(text);
  if (number.empty() || (is_text && HasExponent(number))) ThrowImpossible(text, "número");
  const double limit = std::pow(10.0, type.size - type.scale);
  const auto integer = ParseInteger(number);
  if (integer && std::fabs(static_cast<double>(*integer)) < limit) return IntegerValue(*integer);
  double real = RealOf(number);
  const std::size_t point = number.find('.');
  const std::size_t decimals = point == std::string_view::npos ? 0 : number.size() - point - 1;
  if (decimals > static_cast<std::size_t>(type.scale) || HasExponent(number)) {
    real = RoundDecimal(real, type.scale);
  }
  if (std::fabs(real) >= limit) ThrowTooBig(type, text);
  return RealValue(real);
}

LiteralValue Money(const ColumnType& type, std::string_view text, bool is_text) {
  const std::string_view number = Trimmed(text);
  if (number.empty()) return IntegerValue(0);
  std::optional<Currency> money;
  try {
    if (!is_text || !HasExponent(number)) money = Currency::Parse(number);
  } catch (const Error&) {
    ThrowTooBig(type, text);
  }
  if (!money) ThrowImpossible(text, "número");
  if (money->Units() < type.sql->low || money->Units() > type.sql->high) ThrowTooBig(type, text);
  return RealValue(money->ToDouble());
}

bool LeadsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }

/// Up to where a text of UTF-8 has `characters`; a character beyond the first plane counts twice
/// where texts are Unicode.
std::size_t EndOfCharacters(std::string_view text, int characters, bool unicode) {
  std::size_t i = 0;
  for (; i < text.size(); ++i) {
    if (!LeadsCharacter(text[i])) continue;
    characters -= unicode && static_cast<unsigned char>(text[i]) >= 0xF0 ? 2 : 1;
    if (characters < 0) break;
  }
  return i;
}

LiteralValue Text(const Column& column, LiteralValue value) {
  const std::string_view text = value.Text();
  const auto size = static_cast<std::size_t>(column.type.size);
  if (size == 0 || text.size() <= size) return value;
  const bool unicode = column.type.sql->name.front() == 'n';
  const std::size_t end = EndOfCharacters(text, column.type.size, unicode);
  if (end == text.size()) return value;
  if (text.find_first_not_of(' ', end) != std::string_view::npos) {
    ThrowTruncated(column, text.substr(0, end));
  }
  if (value.view.data() != nullptr) {
    value.view = value.view.substr(0, end);
  } else {
    value.owned.resize(end);
  }
  return value;
}

bool IsInRange(const ColumnType& type, const FechaHora& date) {
  if (type.sql == nullptr) return true;
  if (type.sql->fit != Fit::kMinute) return date.year >= type.sql->low;
  return date.year >= 1900 && date < FechaHora{2079, 6, 7};
}

/// 29.998 seconds are the last that go to the minute before.
FechaHora ToMinute(const FechaHora& date, std::string_view text) {
  const bool up =
      date.second >= 30 || (date.second == 29 && text.find(":29.999") != std::string_view::npos);
  return date.PlusSeconds((up ? 60 : 0) - date.second);
}

FechaHora Fitted(const ColumnType& type, FechaHora date, std::string_view text) {
  if (type.kind == ColumnKind::kDay) date.hour = date.minute = date.second = 0;
  const bool to_minute = type.sql != nullptr && type.sql->fit == Fit::kMinute;
  if (to_minute && IsInRange(type, date)) date = ToMinute(date, text);
  if (!IsInRange(type, date)) {
    Throw("La conversión del texto '" + std::string(text) + "' en " + std::string(type.sql->name) +
          " produjo un valor fuera de intervalo.");
  }
  return date;
}

LiteralValue Date(const ColumnType& type, LiteralValue value) {
  const auto date = FechaHora::Parse(value.Text());
  if (!date) Throw(BadDateMessage(value.Text()));
  const FechaHora fitted = Fitted(type, *date, value.Text());
  if (fitted == *date && IsCanonicalDate(value.Text())) return value;
  return DateValue(fitted);
}

/// A value of a type that has no more rules than its kind.
LiteralValue OfKind(const ColumnType& type, LiteralValue value, bool is_text) {
  if (IsDate(type.kind)) return is_text ? Date(type, std::move(value)) : value;
  if (IsNumber(type.kind)) return NumberOf(value.Text());
  if (type.kind == ColumnKind::kBlob && is_text) value.type = Type::kBlob;
  return value;
}

LiteralValue Fitting(const Column& column, LiteralValue value, bool is_text) {
  const ColumnType& type = column.type;
  if (IsDate(type.kind) && !is_text) return MomentOf(type, value.Text());
  switch (type.sql == nullptr ? Fit::kAny : type.sql->fit) {
    case Fit::kBit:
      return Bit(value.Text());
    case Fit::kInteger:
      return WholeNumber(type, value.Text(), is_text);
    case Fit::kDecimal:
      return Decimal(type, value.Text(), is_text);
    case Fit::kMoney:
      return Money(type, value.Text(), is_text);
    case Fit::kText:
      return Text(column, std::move(value));
    default:
      return OfKind(type, std::move(value), is_text);
  }
}

}  // namespace

LiteralValue ValueFor(const Column& column, LiteralValue value, bool is_text) {
  if (column.type.kind == ColumnKind::kText) return Fitting(column, std::move(value), is_text);
  try {
    return Fitting(column, std::move(value), is_text);
  } catch (const Error& error) {
    Throw(error.Description() + " Tabla '" + column.table + "', columna '" + column.label + "'.");
  }
}

LiteralValue ValueBeside(const ColumnType& type, LiteralValue text) {
  const bool integer = type.sql != nullptr && type.sql->fit == Fit::kInteger;
  if (integer) return WholeNumber(type, text.Text(), true);
  return OfKind(type, std::move(text), true);
}

LiteralValue MomentOf(const ColumnType& type, std::string_view number) {
  constexpr double kMostDays = 3'000'000;
  constexpr double kSecondsOfDay = 86400;
  const double days = RealOf(number);
  if (std::fabs(days) > kMostDays) ThrowTooBig(type, number);
  const auto seconds = static_cast<std::int64_t>(std::llround(days * kSecondsOfDay));
  return DateValue(Fitted(type, FechaHora{1900, 1, 1}.PlusSeconds(seconds), number));
}

}  // namespace kvraedi::sqlite
