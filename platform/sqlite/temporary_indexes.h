#pragma once

#include <string>
#include <vector>

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// Definitions of the indexes that a statement wants of the temporary tables it searches, which
/// come without any: for each of them, one over the columns that its WHERE compares with values. An
/// index that is there already is left alone; all go with their table. `pieces` are marked.
std::vector<std::string> TemporaryIndexes(const Pieces& pieces, Schema& schema);

}  // namespace kvraedi::sqlite
