#include <functional>
#include <ostream>
#include <string>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "kvraedi/error.h"
#include "kvraedi/ficheros_recibidos.h"
#include "kvraedi/sesion.h"

namespace kvraedi::cli {
namespace {

int ConSesion(const Argumentos& argumentos, const Salida& salida,
              const std::function<void()>& cuerpo) {
  SesionCli sesion(argumentos, salida.mensajes);
  PropiedadesSesion propiedades;
  propiedades.EmpresaKestrova(sesion.EmpresaActual());
  propiedades.ConexionKestrova(sesion.Conexion());
  try {
    cuerpo();
  } catch (const Error& error) {
    throw Fallo(kRechazado, error.Description());
  }
  sesion.Cerrar();
  return kHecho;
}

int Reprocesar(TipoRecibido tipo, const Argumentos& argumentos, const Salida& salida) {
  return ConSesion(argumentos, salida, [&] {
    const std::string objecion = ObjecionAReprocesar(tipo, argumentos.fichero);
    if (!objecion.empty() && !argumentos.forzar) {
      throw Fallo(kRechazado, objecion + "; con --forzar se lee otra vez");
    }
    ReprocesarFichero(tipo, argumentos.fichero);
    salida.resultado << "Se leerá otra vez: " << argumentos.fichero << '\n';
  });
}

}  // namespace

int EjecutarOrdersReprocesar(const Argumentos& argumentos, const Salida& salida) {
  return Reprocesar(TipoRecibido::kOrders, argumentos, salida);
}

int EjecutarDesadvReprocesar(const Argumentos& argumentos, const Salida& salida) {
  return Reprocesar(TipoRecibido::kDesadv, argumentos, salida);
}

int EjecutarOrdersApartar(const Argumentos& argumentos, const Salida& salida) {
  return ConSesion(argumentos, salida, [&] {
    ApartarFichero(TipoRecibido::kOrders, argumentos.fichero);
    salida.resultado << "En la carpeta Error: " << argumentos.fichero << '\n';
  });
}

}  // namespace kvraedi::cli
