#pragma once

#include <string>
#include <string_view>

namespace kvraedi::sqlite {

/// What people read of a failure that SQLite told as `code` (extended) and `english`: the words of
/// a Spanish SQL Server where it has some.
std::string SpanishError(int code, std::string_view english);

}  // namespace kvraedi::sqlite
