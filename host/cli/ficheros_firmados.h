#pragma once

#include <filesystem>
#include <vector>

#include "host/cli/sesion_cli.h"
#include "kvraedi/ui/grid.h"

namespace kvraedi::cli {

/// The signed documents of the sent rows, for a customer whose channel is Facturae; none for
/// another one.
std::vector<std::filesystem::path> FicherosFirmados(SesionCli& sesion, const ui::Grid& lista,
                                                    const std::vector<int>& filas);

}  // namespace kvraedi::cli
