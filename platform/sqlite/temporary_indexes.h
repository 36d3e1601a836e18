#pragma once

#include <string>
#include <vector>

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// Definitions of the indexes that a statement wants of the temporary tables it searches, which
/// come without any: for each of them, one over the columns that its WHERE compares with values. An
/// index that is there already is left alone; all go with their table. `pieces` are marked;
/// `as_numbers` are the text columns that the statement takes for numbers.
std::vector<std::string> TemporaryIndexes(const Pieces& pieces, Schema& schema,
                                          const std::vector<const Column*>& as_numbers);

}  // namespace kvraedi::sqlite
