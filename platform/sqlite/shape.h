#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/literal.h"

namespace kvraedi::sqlite {

enum class StatementKind : std::uint8_t {
  kQuery,
  kChange,
  kDefinition,  // of tables, indexes and functions: has no shape
  kSetting,     // SET ...: has no shape
};

/// A statement apart from its literals. Statements that differ only in their literals have the same
/// key and share one prepared statement. Numbers that choose a result column (ORDER BY 1) or a
/// number of rows (TOP 1) belong to the shape.
struct Shape {
  StatementKind kind = StatementKind::kChange;
  bool cacheable = true;  // false when it has too many literals
  std::string key;
  std::vector<Literal> literals;  // in the order of the text, which they point into
};

/// Reads the shape of one statement into `shape`, whose memory is used again. Raises when the text
/// holds no statement or more than one.
void ReadShape(std::string_view sql, Shape& shape);

}  // namespace kvraedi::sqlite
