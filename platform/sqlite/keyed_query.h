#pragma once

#include <string>
#include <string_view>

namespace kvraedi::sqlite {

/// A query of one table whose first column is the key of the row.
struct KeyedQuery {
  std::string sql;
  std::string table;
};

/// Puts the row's key in front of the columns of a SELECT. Raises when the statement is none, or
/// when its rows are not those of a table.
KeyedQuery WithRowKey(std::string_view sql);

}  // namespace kvraedi::sqlite
