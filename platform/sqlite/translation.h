#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/literal.h"
#include "platform/sqlite/piece.h"
#include "platform/sqlite/scalar_functions.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// A parameter of the translated text, numbered from 1 in this order.
struct Slot {
  static constexpr std::size_t kColumn = static_cast<std::size_t>(-1);
  std::size_t literal = 0;  // of the statement's literals; kColumn: beside.stored itself
  Beside beside;
};

struct Translation {
  std::vector<std::string> indexes;       // definitions to run before it, of temporary tables
  std::vector<const Column*> as_numbers;  // text columns of which every value must be a number
  std::string sql;
  std::vector<Slot> slots;
};

/// Puts a query or change into SQLite's words. `literals` become parameters; without them, all
/// stay in the text.
Translation Translate(std::string_view sql, const std::vector<Literal>& literals, Schema& schema,
                      const ScalarFunctions& functions);

/// The same for an expression or a select inside a definition.
std::string TranslatePieces(Pieces pieces, Schema& schema, const ScalarFunctions& functions);

}  // namespace kvraedi::sqlite
