#include "host/cli/conexion_cli.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include "host/cli/fallo.h"
#include "host/cli/texto.h"
#include "platform/sqlite/sqlite_connection.h"
#ifdef KVRAEDI_ODBC
#include "platform/odbc/odbc_connection.h"
#endif

namespace kvraedi::cli {
namespace {

constexpr std::string_view kSqlite = "sqlite:";
constexpr std::string_view kOdbc = "odbc:";
constexpr const char* kVariable = "KVRAEDI_CONEXION";
constexpr const char* kDemo = "sqlite:demo/kvraedi.db";

std::string DelEntorno() {
  const char* const valor = std::getenv(kVariable);
  return valor == nullptr ? "" : valor;
}

/// What stands behind "odbc:", which for another program may be all of the variable.
std::string CadenaOdbc(std::string texto, Entorno& entorno) {
  if (texto == kOdbc) texto = DelEntorno();
  if (texto.starts_with(kOdbc)) texto.erase(0, kOdbc.size());
  if (texto.starts_with('@')) {
    texto = entorno.ReadFile(RutaUtf8(std::string_view(texto).substr(1)));
    texto.erase(texto.find_last_not_of(" \t\r\n") + 1);
  }
  if (texto.empty() || texto.starts_with(kSqlite)) {
    throw Fallo(kUsoErroneo, std::string("falta la cadena de conexión de ODBC, detrás de odbc: o "
                                         "en la variable ") +
                                 kVariable);
  }
  return texto;
}

#ifdef KVRAEDI_ODBC
ConexionAbierta AbrirOdbc(const std::string& cadena) {
  auto conexion = std::make_shared<OdbcConnection>(cadena);
  std::string baseDatos = conexion->Database();
  return {std::move(conexion), std::filesystem::current_path(), std::move(baseDatos)};
}
#else
ConexionAbierta AbrirOdbc(const std::string& /*cadena*/) {
  throw Fallo(kSinFicheros, "este programa se ha construido sin ODBC");
}
#endif

ConexionAbierta AbrirSqlite(const std::string& fichero, Entorno& entorno) {
  const std::filesystem::path ruta(fichero);
  if (!entorno.FileExists(ruta)) {
    throw Fallo(kSinFicheros, "no existe la base de datos «" + fichero +
                                  "»; «kvraedi demo» crea una de demostración");
  }
  SqliteOptions opciones;
  opciones.clock = [&entorno] { return entorno.Now(); };
  return {std::make_shared<SqliteConnection>(fichero, std::move(opciones)),
          std::filesystem::absolute(ruta).parent_path(), ""};
}

}  // namespace

bool EsConexion(const std::string& texto) {
  return texto.starts_with(kOdbc) || (texto.starts_with(kSqlite) && texto.size() > kSqlite.size());
}

ConexionAbierta AbrirConexion(const std::string& texto, Entorno& entorno) {
  std::string destino = texto.empty() ? DelEntorno() : texto;
  if (destino.empty()) destino = kDemo;
  if (destino.starts_with(kSqlite)) return AbrirSqlite(destino.substr(kSqlite.size()), entorno);
  return AbrirOdbc(CadenaOdbc(std::move(destino), entorno));
}

}  // namespace kvraedi::cli
