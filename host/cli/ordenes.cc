#include "host/cli/ordenes.h"

#include <array>

namespace kvraedi::cli {

std::span<const Orden> Ordenes() {
  static const auto ordenes = std::to_array<Orden>({
      {"", "demo", "Crea una base de datos de demostración", OpcionesDemo(), EjecutarDemo},
      {"facturas", "listar", "Lista las facturas emitidas", OpcionesListar(), EjecutarListar},
      {"facturas", "enviar", "Envía facturas de un cliente", OpcionesEnviar(), EjecutarEnviar},
      {"anexos", "listar", "Lista los anexos de una factura", OpcionesAnexosListar(),
       EjecutarAnexosListar},
      {"anexos", "anadir", "Anexa un documento a una factura", OpcionesAnexosAnadir(),
       EjecutarAnexosAnadir},
      {"anexos", "quitar", "Quita un anexo de una factura", OpcionesAnexosQuitar(),
       EjecutarAnexosQuitar},
      {"centros", "listar", "Lista los centros administrativos", OpcionesCentrosListar(),
       EjecutarCentrosListar},
      {"centros", "anadir", "Añade un centro administrativo", OpcionesCentrosAnadir(),
       EjecutarCentrosAnadir},
      {"centros", "modificar", "Modifica un centro administrativo", OpcionesCentrosModificar(),
       EjecutarCentrosModificar},
      {"centros", "eliminar", "Elimina un centro administrativo", OpcionesCentrosEliminar(),
       EjecutarCentrosEliminar},
      {"", "pantallas", "Abre las pantallas en una ventana", OpcionesPantallas(),
       EjecutarPantallas},
  });
  return ordenes;
}

}  // namespace kvraedi::cli
