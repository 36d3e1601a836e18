#pragma once

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// Marks what is written otherwise in SQLite than in T-SQL: TOP, ISNULL, GETDATE, CONVERT and CAST,
/// + between texts, "dbo.", table hints, @@IDENTITY. Raises for what has no counterpart.
void MarkDialect(Pieces& pieces, Schema& schema);

}  // namespace kvraedi::sqlite
