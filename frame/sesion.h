#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"

namespace kvraedi {

/// The one record of the process that every public class writes and every routine reads.
struct Sesion {
  std::shared_ptr<Empresa> empresa;
  std::shared_ptr<Connection> conexion;
  std::string odbcNombre;
  std::string odbcUsuario;
  std::string odbcBaseDatos;
  std::string odbcPassword;
  std::int16_t usuario = 0;
};

Sesion& SesionActual();

/// The session's company and connection; they raise `Error` when the host has set none.
Empresa& EmpresaActual();
Connection& ConexionActual();

/// A company parameter as text; a null gives "".
std::string ParametroTexto(std::string_view nombre);
/// A company parameter that is a folder or a file.
std::filesystem::path ParametroRuta(std::string_view nombre);

}  // namespace kvraedi
