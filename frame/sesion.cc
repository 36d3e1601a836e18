#include "frame/sesion.h"

#include <utility>

#include "frame/formato.h"
#include "frame/ruta.h"
#include "kvraedi/error.h"
#include "kvraedi/sesion.h"

namespace kvraedi {
namespace {

constexpr std::int32_t kErrorObjectNotSet = 91;

template <class T>
T& Required(const std::shared_ptr<T>& object, const char* description) {
  if (!object) throw Error(kErrorObjectNotSet, "kvraedi", description);
  return *object;
}

}  // namespace

Sesion& SesionActual() {
  static Sesion sesion;
  return sesion;
}

Empresa& EmpresaActual() {
  return Required(SesionActual().empresa, "No se ha indicado la empresa de la sesión");
}

Connection& ConexionActual() {
  return Required(SesionActual().conexion, "No se ha indicado la conexión de la sesión");
}

std::string ParametroTexto(std::string_view nombre) {
  return TextoDe(EmpresaActual().Parametro(nombre));
}

std::filesystem::path ParametroRuta(std::string_view nombre) {
  return RutaDe(ParametroTexto(nombre));
}

void PropiedadesSesion::EmpresaKestrova(std::shared_ptr<Empresa> empresa) {
  SesionActual().empresa = std::move(empresa);
}
void PropiedadesSesion::ConexionKestrova(std::shared_ptr<Connection> conexion) {
  SesionActual().conexion = std::move(conexion);
}
void PropiedadesSesionOdbc::ODBCNombre(std::string nombre) {
  SesionActual().odbcNombre = std::move(nombre);
}
void PropiedadesSesionOdbc::ODBCUsuario(std::string usuario) {
  SesionActual().odbcUsuario = std::move(usuario);
}
void PropiedadesSesionOdbc::ODBCBaseDatos(std::string baseDatos) {
  SesionActual().odbcBaseDatos = std::move(baseDatos);
}
void PropiedadesSesionOdbc::ODBCPassword(std::string password) {
  SesionActual().odbcPassword = std::move(password);
}
void PropiedadesSesionOdbc::Usuario(std::int16_t usuario) { SesionActual().usuario = usuario; }

}  // namespace kvraedi
