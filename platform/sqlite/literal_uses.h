#pragma once

#include <vector>

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// Finds the columns that the literals of a statement are compared with or stored in, and marks how
/// each literal is to be taken. Comparisons of a text column with a bare number, and values of
/// ISNULL over a column, get the collation that they need; what is computed and stored is checked
/// by kvr_guarda. Gives the text columns of which every value must be a number, because the
/// statement compares them with numbers.
std::vector<const Column*> MarkLiteralUses(Pieces& pieces, Schema& schema);

}  // namespace kvraedi::sqlite
