#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/error.h"

namespace kvraedi::cli {

/// The field ID of a query on a column of the reference suite's own; nothing in a suite that lacks
/// the column, where the command does its work and says less of it.
inline std::optional<std::int32_t> UltimaIdentidad(Connection& conexion, std::string_view sql) {
  try {
    return conexion.Open(sql)->Get<std::int32_t>("ID");
  } catch (const Error&) {  // a lost connection is told by the statements that follow
    return std::nullopt;
  }
}

}  // namespace kvraedi::cli
