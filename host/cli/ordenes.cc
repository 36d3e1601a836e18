#include "host/cli/ordenes.h"

#include <array>

namespace kvraedi::cli {

std::span<const Orden> Ordenes() {
  static const std::array<Orden, 4> ordenes = {{
      {"", "demo", "Crea una base de datos de demostración", OpcionesDemo(), EjecutarDemo},
      {"facturas", "listar", "Lista las facturas emitidas", OpcionesListar(), EjecutarListar},
      {"facturas", "enviar", "Envía facturas de un cliente", OpcionesEnviar(), EjecutarEnviar},
      {"", "pantallas", "Abre las pantallas en una ventana", OpcionesPantallas(),
       EjecutarPantallas},
  }};
  return ordenes;
}

}  // namespace kvraedi::cli
