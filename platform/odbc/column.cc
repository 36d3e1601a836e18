#include "platform/odbc/column.h"

#include <array>

#include "platform/odbc/wide.h"

namespace kvraedi::odbc {
namespace {

constexpr std::size_t kDigits = 64;     // of a decimal, sign, point and terminator included
constexpr std::size_t kLongest = 8000;  // characters or bytes of a value of bounded length
constexpr std::size_t kNameCharacters = 512;

Kind KindOf(SQLSMALLINT type) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return Kind::kInteger;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return Kind::kReal;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return Kind::kDecimal;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return Kind::kDate;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return Kind::kBytes;
    default:
      return Kind::kText;
  }
}

bool IsLong(SQLSMALLINT type, SQLULEN size) {
  return type == SQL_LONGVARCHAR || type == SQL_WLONGVARCHAR || type == SQL_LONGVARBINARY ||
         size == 0 || size > kLongest;
}

std::size_t WidthOf(Kind kind, SQLSMALLINT type, SQLULEN size) {
  switch (kind) {
    case Kind::kInteger:
      return sizeof(std::int64_t);
    case Kind::kReal:
      return sizeof(double);
    case Kind::kDecimal:
      return kDigits;
    case Kind::kDate:
      return sizeof(SQL_TIMESTAMP_STRUCT);
    case Kind::kText:
      return IsLong(type, size) ? 0 : (static_cast<std::size_t>(size) + 1) * sizeof(SQLWCHAR);
    case Kind::kBytes:
      break;
  }
  return IsLong(type, size) ? 0 : static_cast<std::size_t>(size);
}

}  // namespace

SQLSMALLINT Column::CType() const {
  switch (kind) {
    case Kind::kInteger:
      return SQL_C_SBIGINT;
    case Kind::kReal:
      return SQL_C_DOUBLE;
    case Kind::kDecimal:
      return SQL_C_CHAR;
    case Kind::kDate:
      return SQL_C_TYPE_TIMESTAMP;
    case Kind::kText:
      return SQL_C_WCHAR;
    case Kind::kBytes:
      break;
  }
  return SQL_C_BINARY;
}

std::size_t Column::Terminator() const {
  if (kind == Kind::kText) return sizeof(SQLWCHAR);
  return kind == Kind::kDecimal ? 1 : 0;
}

std::vector<Column> DescribeColumns(Statement& statement) {
  std::vector<Column> columns(static_cast<std::size_t>(statement.Columns()));
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::array<SQLWCHAR, kNameCharacters> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    statement.Check(SQLDescribeColW(statement.Get(), static_cast<SQLUSMALLINT>(i + 1), name.data(),
                                    static_cast<SQLSMALLINT>(name.size()), &length, &type, &size,
                                    &decimals, &nullable));
    columns[i].name = ToUtf8(std::span(name).first(static_cast<std::size_t>(length)));
    columns[i].kind = KindOf(type);
    columns[i].width = WidthOf(columns[i].kind, type, size);
  }
  return columns;
}

}  // namespace kvraedi::odbc
