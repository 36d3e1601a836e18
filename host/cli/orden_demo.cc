#include <filesystem>
#include <ostream>
#include <string>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/demo/crear_demo.h"
#include "kvraedi/error.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::cli {
namespace {

void EscribirResumen(const std::filesystem::path& baseDatos, std::int16_t empresa,
                     std::ostream& salida) {
  SqliteConnection conexion(baseDatos.string());
  salida << "Clientes de la empresa " << empresa << ", por canal:\n";
  std::string canal = "?";
  for (const auto& cliente : demo::ResumirDemo(conexion, empresa)) {
    if (cliente.canal != canal) {
      canal = cliente.canal;
      salida << "  " << (canal.empty() ? "Sin canal" : canal) << '\n';
    }
    salida << "    " << cliente.codigo << "  " << cliente.nombre << ": " << cliente.pendientes
           << (cliente.pendientes == 1 ? " factura pendiente\n" : " facturas pendientes\n");
  }
}

/// Tells every tenth of the way of a demo that takes its time.
demo::Progreso Contar(std::ostream& mensajes) {
  return [&mensajes, dicho = std::int64_t{0}](std::int32_t hechos, std::int32_t total) mutable {
    constexpr std::int64_t kMuchos = 20'000;
    constexpr std::int64_t kCiento = 100;
    constexpr std::int64_t kPaso = 10;
    if (total < kMuchos) return;
    const std::int64_t parte = hechos * kCiento / total / kPaso * kPaso;
    if (parte <= dicho) return;
    dicho = parte;
    mensajes << "Creando documentos: " << parte << " %\n" << std::flush;
  };
}

}  // namespace

int EjecutarDemo(const Argumentos& argumentos, const Salida& salida) {
  try {
    const auto baseDatos =
        demo::CrearDemo({std::filesystem::path(argumentos.carpeta), argumentos.numeroFacturas,
                         argumentos.semilla, argumentos.sobrescribir},
                        Contar(salida.mensajes));
    salida.resultado << "Base de datos: " << baseDatos.string() << '\n';
    EscribirResumen(baseDatos, argumentos.empresa, salida.resultado);
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
  return kHecho;
}

}  // namespace kvraedi::cli
