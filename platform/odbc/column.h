#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/odbc/statement.h"

namespace kvraedi::odbc {

/// In which form the values of a column are fetched.
enum class Kind : std::uint8_t {
  kInteger,  ///< std::int64_t
  kReal,     ///< double
  kDecimal,  ///< its digits as text, so that money stays exact
  kDate,     ///< SQL_TIMESTAMP_STRUCT
  kText,     ///< UTF-16
  kBytes,
};

struct Column {
  std::string name;  ///< UTF-8
  Kind kind = Kind::kText;
  std::size_t width = 0;  ///< bytes that the driver needs for a value; 0: of any length

  SQLSMALLINT CType() const;
  /// Bytes at the end of a value's place that the driver fills with a terminator.
  std::size_t Terminator() const;
};

/// The columns of the result at hand.
std::vector<Column> DescribeColumns(Statement& statement);

}  // namespace kvraedi::odbc
