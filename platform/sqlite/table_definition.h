#pragma once

#include <string>
#include <string_view>

#include "platform/sqlite/scalar_functions.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// Puts CREATE, ALTER, DROP and TRUNCATE of tables, indexes and views into SQLite's words; the
/// result may hold several statements. Triggers stay as they are: they are in SQLite's words.
///
/// An index is called "<table>_<index>", for its names are the database's, not the table's. An
/// index whose first column is a text gets a companion "<table>_<index>_numero" that finds it as a
/// number.
std::string TranslateDefinition(std::string_view sql, Schema& schema,
                                const ScalarFunctions& functions);

}  // namespace kvraedi::sqlite
