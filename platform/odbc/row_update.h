#pragma once

#include <string>
#include <string_view>

namespace kvraedi::odbc {

/// The change that puts `value` into `field` of the first row that `select` would show. Raises when
/// the statement is no plain SELECT of columns of one table, the field among them.
std::string FirstRowUpdate(std::string_view select, std::string_view field, std::string_view value);

}  // namespace kvraedi::odbc
