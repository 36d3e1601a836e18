#include "orders/interrumpidos.h"

#include <optional>

#include "frame/marca.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "orders/bitacora.h"
#include "orders/lector_barras.h"
#include "orders/leer_pedidos.h"
#include "orders/libro_recibidos.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLeido = ".leido";

/// Where a file comes back to: another of its name may have arrived meanwhile.
fs::path Libre(const fs::path& carpeta, const std::string& nombre) {
  fs::path libre = carpeta / RutaDe(nombre);
  for (int i = 1; EntornoActual().FileExists(libre); ++i) {
    libre = carpeta / RutaDe(std::to_string(i) + "_" + nombre);
  }
  return libre;
}

void Concluir(const fs::path& leido, const std::string& nombre, bool guardado, Bitacora& log) {
  if (guardado) {
    log.Anotar("La ejecución se interrumpió con el fichero ya guardado en la base de datos: " +
               nombre);
    EntornoActual().Delete(leido);
    return;
  }
  const fs::path vuelta = Libre(leido.parent_path(), nombre);
  log.Anotar("La ejecución se interrumpió sin guardar el fichero, que vuelve a la carpeta " +
             TextoRuta(vuelta.parent_path().filename()) + ": " + TextoRuta(vuelta.filename()));
  EntornoActual().Rename(leido, vuelta);
}

/// What the ledger says of the content; nothing where there is no ledger.
std::optional<bool> Anotado(const fs::path& leido, TipoRecibido tipo) {
  LibroRecibidos libro(ConexionActual(), EntornoActual(), tipo);
  if (!libro.Existe()) return std::nullopt;
  return libro.Buscar(leido).has_value();
}

/// Its orders are still staged when they are kept: no second pass has run since.
bool PedidosGuardados(const fs::path& leido, const std::string& nombre) {
  if (const auto anotado = Anotado(leido, TipoRecibido::kOrders)) return *anotado;
  LectorBarras lector(nombre, EntornoActual().OpenForReading(leido));
  while (lector.Siguiente()) {
    if (lector.Etiqueta() == "ORD") return PedidoRecibido(ConexionActual(), lector.Texto(1));
  }
  return false;
}

bool CompraGuardada(const fs::path& leido, const Notas& notas) {
  if (const auto anotado = Anotado(leido, TipoRecibido::kDesadv)) return *anotado;
  const std::string albaran = notas["albaran"];
  return !ConexionActual()
              .Open(Sql("SELECT Documento FROM Compras_Mini WHERE Cod_Empresa = ",
                        Entero<std::int16_t>(notas["empresa"]),
                        " AND Cod_Ejercicio = ", Entero<std::int16_t>(notas["ejercicio"]),
                        " AND Codigo = ", Entero<std::int32_t>(notas["compra"]),
                        " AND Documento = ", SqlTexto{albaran}))
              ->Eof();
}

}  // namespace

fs::path RutaLeido(fs::path fichero) {
  fichero += kLeido;
  return fichero;
}

std::unique_ptr<FileHold> ReservarPedidos(const fs::path& carpeta) {
  Entorno& entorno = EntornoActual();
  auto marca = Reservar(entorno, carpeta / "Temp" / "ORDERS.leyendo",
                        "Los pedidos recibidos los está leyendo", kEsperaCarpeta);
  for (const std::string& fichero : entorno.ListFiles(carpeta / "Temp", kLeido)) {
    const fs::path leido = carpeta / "Temp" / RutaDe(fichero);
    const std::string nombre = TextoRuta(leido.stem());
    Bitacora log(entorno, carpeta / "Log" / "ProcesarFicheros.log", "ProcesarFicheros");
    Concluir(leido, nombre, PedidosGuardados(leido, nombre), log);
  }
  return marca;
}

bool QuedanInterrumpidos(const fs::path& carpeta) {
  return !EntornoActual().ListFiles(carpeta / "Temp", kLeido).empty();
}

std::unique_ptr<FileHold> ReservarAvisos(const fs::path& raiz) {
  return Reservar(EntornoActual(), raiz / "DESADV.leyendo",
                  "Los ficheros recibidos los está leyendo", kEsperaCarpeta,
                  [&](const Notas& notas) {
                    const std::string nombre = notas["fichero"];
                    const fs::path leido = RutaLeido(raiz / "Rx" / RutaDe(nombre));
                    if (nombre.empty() || !EntornoActual().FileExists(leido)) return;
                    Bitacora log(EntornoActual(), raiz / "OrmoPCCOM.log", "Insertar");
                    Concluir(leido, nombre, CompraGuardada(leido, notas), log);
                  });
}

void AnotarAviso(FileHold& marca, const std::string& fichero, const CompraHecha& compra) {
  Anotar(marca, {{"fichero", fichero},
                 {"empresa", std::to_string(EmpresaActual().CodigoEmpresa())},
                 {"ejercicio", std::to_string(compra.ejercicio)},
                 {"compra", std::to_string(compra.codigo)},
                 {"albaran", compra.albaran}});
}

}  // namespace kvraedi
