#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"

#ifdef KVRAEDI_DESKTOP
#include "host/cli/sesion_cli.h"
#include "host/desktop/desktop.h"
#endif

namespace kvraedi::cli {

#ifdef KVRAEDI_DESKTOP

int EjecutarPantallas(const Argumentos& argumentos, const Salida& salida) {
  std::optional<desktop::Pictures> capturas;
  if (argumentos.capturas) {
    if (argumentos.desde.empty() || argumentos.hasta.empty()) {
      throw Fallo(kUsoErroneo, "--capturas necesita --desde y --hasta");
    }
    capturas = desktop::Pictures{*argumentos.capturas, argumentos.desde, argumentos.hasta};
  }
  SesionCli sesion(argumentos, salida.mensajes);
  const int codigo = desktop::RunDesktop({sesion.Conexion(),
                                          sesion.EmpresaActual(),
                                          {},
                                          sesion.EntornoActual(),
                                          sesion.SuiteActual(),
                                          capturas});
  sesion.Cerrar();
  return codigo;
}

#else

int EjecutarPantallas(const Argumentos& /*argumentos*/, const Salida& /*salida*/) {
  throw Fallo(kRechazado, "este programa se ha construido sin Qt: no tiene pantallas");
}

#endif

}  // namespace kvraedi::cli
