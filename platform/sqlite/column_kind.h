#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvraedi::sqlite {

/// What a column holds, as far as statements are written differently for it.
enum class ColumnKind : std::uint8_t { kUnknown, kInteger, kReal, kText, kDate, kDay, kBlob };

/// A type of T-SQL and how it stands in a table of SQLite. The declared name gives the column its
/// affinity and keeps the T-SQL type readable: money is never divided as an integer, dates stay
/// texts.
struct SqlType {
  std::string_view name;      // as T-SQL calls it, in lower case
  std::string_view declared;  // as the table declares it
  ColumnKind kind;
};

/// The type that T-SQL calls `name`; raises for one that it does not know.
const SqlType& FindSqlType(std::string_view name);

/// The kind of a column from its declared type, also when the table was made without this adapter.
ColumnKind KindOfDeclared(std::string_view declared);

/// The collation that columns of that kind are declared with; empty for none.
std::string_view CollationOf(ColumnKind kind);

inline bool IsDate(ColumnKind kind) {
  return kind == ColumnKind::kDate || kind == ColumnKind::kDay;
}
inline bool IsNumber(ColumnKind kind) {
  return kind == ColumnKind::kInteger || kind == ColumnKind::kReal;
}

}  // namespace kvraedi::sqlite
