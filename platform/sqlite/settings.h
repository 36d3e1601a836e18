#pragma once

#include <string_view>

namespace kvraedi::sqlite {

/// Raises unless `sql`, a SET statement, asks for what this database does anyway.
void CheckSetting(std::string_view sql);

}  // namespace kvraedi::sqlite
