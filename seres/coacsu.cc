#include <memory>
#include <string>

#include "frame/accion.h"
#include "frame/marca.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "seres/consultas_coacsu.h"
#include "seres/escritores_coacsu.h"
#include "seres/modSeres.h"

namespace kvraedi {
namespace {

constexpr const char* kLongitud = "longitud";

/// The file for this terminal alone, without what an interrupted run wrote.
std::unique_ptr<FileHold> ReservarFichero(Entorno& entorno) {
  auto marca = FicheroCoacsu();
  return Reservar(entorno, marca += ".escribiendo", "El fichero COACSU lo está escribiendo",
                  kEsperaBreve, [&](const Notas& notas) {
                    const std::string longitud = notas[kLongitud];
                    if (longitud.empty() || !entorno.FileExists(FicheroCoacsu())) return;
                    entorno.Truncate(FicheroCoacsu(), Entero<std::int64_t>(longitud));
                  });
}

/// The message of the summary invoice on which the recordset stands, with the delivery lines of
/// the whole selection.
bool GenerarMensajeCoacsu(const coacsu::Seleccion& seleccion, const Recordset& resumen,
                          EscritorTexto& fichero) {
  return Accion("clsSeres:GenerarMensajeCoacsu", [&] {
    coacsu::EscribirCabecera(fichero, resumen, EntornoActual().Now());
    const auto lineas = ConexionActual().Open(coacsu::ConsultaAlbaranes(seleccion));
    coacsu::EscribirAlbaranes(fichero, *lineas);
  });
}

}  // namespace

std::filesystem::path FicheroCoacsu() { return EntornoActual().DriveRoot() / "KVRAEDI_COACSU.txt"; }

bool ProcesarFacturasCoacsu(std::int16_t cliente, const std::string& fechaInicial,
                            const std::string& fechaFinal) {
  bool generados = true;
  const bool procesado = Accion("clsSeres:ProcesarFacturasCoacsu", [&] {
    const coacsu::Seleccion seleccion{cliente, fechaInicial, fechaFinal};
    Entorno& entorno = EntornoActual();
    const auto marca = ReservarFichero(entorno);
    const auto resumen = ConexionActual().Open(coacsu::ConsultaResumen(seleccion));
    Anotar(*marca, {{kLongitud, std::to_string(entorno.FileSize(FicheroCoacsu()))}});
    EscritorTexto fichero(entorno.Append(FicheroCoacsu()));
    coacsu::EscribirRectl(fichero, entorno.Now());
    for (; !resumen->Eof(); resumen->MoveNext()) {
      generados = GenerarMensajeCoacsu(seleccion, *resumen, fichero);
      if (!generados) break;
    }
    fichero.Cerrar();
  });
  return procesado && generados;
}

}  // namespace kvraedi
