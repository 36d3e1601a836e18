#include "kvraedi/ficheros_recibidos.h"

#include <filesystem>
#include <memory>
#include <string_view>

#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"
#include "orders/bitacora.h"
#include "orders/interrumpidos.h"
#include "orders/libro_recibidos.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

/// The places of a received file.
struct Lugares {
  fs::path espera;
  fs::path ok;
  fs::path error;
  fs::path log;
};

[[noreturn]] void Fallar(const std::string& motivo) {
  throw Error(kErrorItemNotFound, "kvraedi", motivo);
}

Lugares LugaresDe(TipoRecibido tipo, const std::string& fichero) {
  if (!EsNombreDeFichero(fichero)) {
    Fallar("\"" + fichero + "\" no es el nombre de un fichero recibido");
  }
  const fs::path raiz = ParametroRuta("EDI_PathFichRecibir");
  if (raiz.empty()) Fallar("La carpeta de recepción no está configurada");
  const fs::path nombre = RutaDe(fichero);
  if (tipo == TipoRecibido::kDesadv) {
    return {raiz / "Rx" / nombre, raiz / "OK" / nombre, raiz / "Error" / nombre,
            raiz / "OrmoPCCOM.log"};
  }
  const fs::path carpeta = raiz / "ORDERS";
  return {carpeta / "Temp" / nombre, carpeta / "OK" / nombre, carpeta / "Error" / nombre,
          carpeta / "Log" / "ProcesarFicheros.log"};
}

/// No file is moved while another program takes files in.
std::unique_ptr<FileHold> Turno(TipoRecibido tipo) {
  const fs::path raiz = ParametroRuta("EDI_PathFichRecibir");
  return tipo == TipoRecibido::kOrders ? ReservarPedidos(raiz / "ORDERS") : ReservarAvisos(raiz);
}

/// Where a file stands that was taken in, or that could not be.
fs::path Origen(const Lugares& lugares) {
  Entorno& entorno = EntornoActual();
  if (entorno.FileExists(lugares.espera)) {
    Fallar("Ya espera un fichero de ese nombre: " + TextoRuta(lugares.espera));
  }
  for (const fs::path& lugar : {lugares.error, lugares.ok}) {
    if (entorno.FileExists(lugar)) return lugar;
  }
  Fallar("El fichero no está en las carpetas Error y OK: " + TextoRuta(lugares.ok.filename()));
}

/// The copy is on the disk before the file goes from where it is.
void Mover(const fs::path& origen, const fs::path& destino) {
  EntornoActual().Copy(origen, destino);
  EntornoActual().Delete(origen);
}

}  // namespace

std::string ObjecionAReprocesar(TipoRecibido tipo, const std::string& fichero) {
  const Lugares lugares = LugaresDe(tipo, fichero);
  const fs::path origen = Origen(lugares);
  LibroRecibidos libro(ConexionActual(), EntornoActual(), tipo);
  if (!libro.Existe()) {
    return origen == lugares.ok ? "El fichero " + fichero + " está en la carpeta OK" : "";
  }
  const auto antes = libro.Buscar(origen);
  return antes ? "El contenido de " + fichero + " es el de " + antes->Texto() : "";
}

void ReprocesarFichero(TipoRecibido tipo, const std::string& fichero) {
  const Lugares lugares = LugaresDe(tipo, fichero);
  const auto turno = Turno(tipo);
  const fs::path origen = Origen(lugares);
  Bitacora log(EntornoActual(), lugares.log, "ReprocesarFichero");
  LibroRecibidos libro(ConexionActual(), EntornoActual(), tipo);
  if (libro.Buscar(origen)) libro.Permitir();
  log.Anotar("Devolviendo Fichero a la carpeta de entrada: " + fichero);
  Mover(origen, lugares.espera);
}

void ApartarFichero(TipoRecibido tipo, const std::string& fichero) {
  const Lugares lugares = LugaresDe(tipo, fichero);
  const auto turno = Turno(tipo);
  if (!EntornoActual().FileExists(lugares.espera)) {
    Fallar("Ningún fichero de ese nombre espera: " + TextoRuta(lugares.espera));
  }
  Bitacora log(EntornoActual(), lugares.log, "ApartarFichero");
  log.Anotar("Moviendo Fichero a carpeta Error: " + fichero);
  EntornoActual().MakeFolder(lugares.error.parent_path());
  Mover(lugares.espera, lugares.error);
}

}  // namespace kvraedi
