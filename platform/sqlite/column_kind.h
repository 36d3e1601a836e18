#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::sqlite {

/// What a column holds, as far as statements are written differently for it.
enum class ColumnKind : std::uint8_t { kUnknown, kInteger, kReal, kText, kDate, kDay, kBlob };

/// How a value has to be for a column to take it.
enum class Fit : std::uint8_t {
  kAny,
  kBit,
  kInteger,   // from `low` to `high`
  kDecimal,   // rounded to the scale, as many digits as the type says
  kMoney,     // four decimals, from `low` to `high` ten-thousandths
  kText,      // as many characters as the type says
  kDateTime,  // from the year `low` on
  kMinute,    // from 01/01/1900 to 06/06/2079, to the minute
};

/// A type of T-SQL and how it stands in a table of SQLite. The declared name gives the column its
/// affinity and keeps the T-SQL type readable: money is never divided as an integer, dates stay
/// texts.
struct SqlType {
  std::string_view name;      // as T-SQL calls it, in lower case
  std::string_view declared;  // as the table declares it
  ColumnKind kind;
  Fit fit = Fit::kAny;
  std::int64_t low = 0;
  std::int64_t high = 0;
};

/// The type that T-SQL calls `name`; raises for one that it does not know.
const SqlType& FindSqlType(std::string_view name);

/// A type with its size, as a column has it.
struct ColumnType {
  ColumnKind kind = ColumnKind::kUnknown;
  const SqlType* sql = nullptr;  // null for types that this adapter did not declare
  int size = 0;                  // characters of a text, 0 for no limit; digits of a decimal
  int scale = 0;
  friend bool operator==(const ColumnType&, const ColumnType&) = default;
};

/// How a table declares a type with the sizes that it was given ("max" is none).
std::string Declared(std::string_view name, std::vector<int> sizes, bool max);
/// The type of a column from its declaration, also when the table was made without this adapter.
ColumnType TypeOfDeclared(std::string_view declared);
/// The type as T-SQL writes it: "decimal(12,4)".
std::string Written(const ColumnType& type);

/// The collation that columns of that kind are declared with; empty for none.
std::string_view CollationOf(ColumnKind kind);

inline bool IsDate(ColumnKind kind) {
  return kind == ColumnKind::kDate || kind == ColumnKind::kDay;
}
inline bool IsNumber(ColumnKind kind) {
  return kind == ColumnKind::kInteger || kind == ColumnKind::kReal;
}

}  // namespace kvraedi::sqlite
