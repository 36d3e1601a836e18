#pragma once

#include <string_view>

namespace kvraedi::demo {

/// The T-SQL scripts esquema.sql and funciones.sql, as they were when the program was built.
extern const std::string_view kEsquema;
extern const std::string_view kFunciones;

}  // namespace kvraedi::demo
