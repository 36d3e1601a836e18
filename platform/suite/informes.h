#pragma once

#include <filesystem>
#include <memory>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "kvraedi/informe.h"

namespace kvraedi::suite {

/// Opens a report file and those within it. Raises `Error`, with the file's name; always when the
/// adapter was built without the library of templates.
std::unique_ptr<Informe> AbrirInforme(Entorno& entorno, const std::shared_ptr<Connection>& conexion,
                                      const std::filesystem::path& fichero);

}  // namespace kvraedi::suite
