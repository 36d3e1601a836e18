#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include "host/cli/conexion_cli.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/registro_sql.h"
#include "host/demo/crear_demo.h"
#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::cli {
namespace {

void EscribirResumen(Connection& conexion, std::int16_t empresa, std::ostream& salida) {
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

/// The demo as a file of the embedded database, or in the server's database that was named.
void CrearFichero(const demo::OpcionesDemo& opciones, std::int16_t empresa, const Salida& salida) {
  const auto baseDatos = demo::CrearDemo(opciones, Contar(salida.mensajes));
  salida.resultado << "Base de datos: " << baseDatos.string() << '\n';
  SqliteConnection conexion(baseDatos.string());
  EscribirResumen(conexion, empresa, salida.resultado);
}

void CrearEnServidor(const Argumentos& argumentos, const demo::OpcionesDemo& opciones,
                     EntornoSistema& entorno, const Salida& salida) {
  auto abierta = AbrirConexion(argumentos.conexion, entorno);
  if (opciones.envolver) abierta.conexion = opciones.envolver(std::move(abierta.conexion));
  demo::CrearDemoEn(*abierta.conexion, opciones, Contar(salida.mensajes));
  salida.resultado << "Base de datos: " << abierta.baseDatos << '\n';
  EscribirResumen(*abierta.conexion, argumentos.empresa, salida.resultado);
}

}  // namespace

int EjecutarDemo(const Argumentos& argumentos, const Salida& salida) {
  demo::OpcionesDemo opciones{std::filesystem::path(argumentos.carpeta),
                              argumentos.numeroFacturas,
                              argumentos.semilla,
                              argumentos.sobrescribir,
                              {}};
  try {
    EntornoSistema entorno(argumentos.entorno);
    std::shared_ptr<FileWriter> registro;
    if (argumentos.registroSql) {
      registro = entorno.Create(*argumentos.registroSql);
      opciones.envolver = [&registro](std::shared_ptr<Connection> conexion) {
        return std::make_shared<RegistroSql>(std::move(conexion), registro);
      };
    }
    if (argumentos.conexion.starts_with("odbc:")) {
      CrearEnServidor(argumentos, opciones, entorno, salida);
    } else {
      CrearFichero(opciones, argumentos.empresa, salida);
    }
    if (registro) registro->Close();
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
  return kHecho;
}

}  // namespace kvraedi::cli
