#pragma once

#include "platform/sqlite/literal.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// The value that a column keeps of one that is stored in it, as SQL Server would keep it: numbers
/// rounded to its scale, moments to its minute, no blanks beyond its length. `value` is a text or
/// the digits of a number. Raises, naming the column, when the value does not fit it.
LiteralValue ValueFor(const Column& column, LiteralValue value, bool is_text);

/// A text as a value of the type that it is compared with; raises when it is none.
LiteralValue ValueBeside(const ColumnType& type, LiteralValue text);

/// The moment that SQL Server takes a number for: days from 01/01/1900 on.
LiteralValue MomentOf(const ColumnType& type, std::string_view number);

}  // namespace kvraedi::sqlite
