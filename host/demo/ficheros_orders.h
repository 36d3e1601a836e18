#pragma once

#include <filesystem>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Writes the orders of several customers, good and bad ones, that wait in the folder ORDERS/Temp
/// of a reception folder, which must exist. Needs customers, stores and bar codes. Raises `Error`.
void CrearFicherosOrders(Connection& conexion, const std::filesystem::path& recepcion);

}  // namespace kvraedi::demo
