#pragma once

#include <cstdint>
#include <filesystem>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// The users, the invoices received from suppliers with their files in folders of years below
/// `recepcion`, good ones and spoilt ones, and the files that wait to be classified. Needs the
/// suppliers.
void CrearRecepcion(Connection& conexion, const std::filesystem::path& recepcion,
                    std::uint64_t semilla);

}  // namespace kvraedi::demo
