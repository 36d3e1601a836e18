#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"

namespace kvraedi::cli {

/// Whether a text says where a database is: "sqlite:RUTA", "odbc:CADENA", "odbc:@FICHERO" for a
/// string that stands in a file, or "odbc:" alone for the one of the environment.
bool EsConexion(const std::string& texto);

/// An open database and what its place means to the suite.
struct ConexionAbierta {
  std::shared_ptr<Connection> conexion;
  std::filesystem::path carpeta;  ///< against which relative folders are resolved
  std::string baseDatos;          ///< its name for reports; "" when the suite's parameters tell it
};

/// Opens the database of such a text; without one, that of the variable KVRAEDI_CONEXION, and else
/// the demo's. `entorno`, whose clock an embedded database follows, must outlive the connection.
/// Raises Fallo or Error, neither of which shows a connection string.
ConexionAbierta AbrirConexion(const std::string& texto, Entorno& entorno);

}  // namespace kvraedi::cli
