#include "facturae/envio_dudoso.h"

#include <optional>

#include "facturae/firma.h"
#include "facturae/registro_envio.h"
#include "frame/avisos.h"
#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/peticion_firma.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"
#include "kvraedi/facturas_dudosas.h"

namespace kvraedi {
namespace {

FacturasDudosas& Dudosas() {
  static FacturasDudosas que = FacturasDudosas::kPreguntar;
  return que;
}

}  // namespace

void ResolverFacturasDudosas(FacturasDudosas que) { Dudosas() = que; }

namespace facturae {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCuando = "cuando";
constexpr const char* kDocumento = "documento";
constexpr const char* kRespuesta = "respuesta";
constexpr const char* kMarca = "marca";
constexpr const char* kRevision = "revision";

/// The answer that stands in the work folder is that of the invoice whose mark the notes name.
void RecogerRespuesta(const fs::path& trabajo, const Notas& notas) {
  Entorno& entorno = EntornoActual();
  const fs::path ruta = RutaDe(notas[kMarca]);
  const fs::path salida = trabajo / kRespuestaFirma;
  if (ruta.empty() || !entorno.FileExists(ruta) || !entorno.FileExists(salida)) return;
  const auto marca = entorno.Hold(ruta, {});
  if (!marca || marca->Text().empty()) return;
  marca->Leave();
  const Notas factura(marca->Text());
  if (factura[kCuando] != notas[kCuando] || !factura[kRespuesta].empty()) return;
  const auto xml = SuiteActual().NuevoDocumentoXml(entorno);
  AnotarRespuesta(*marca, LeerRespuesta(*xml, salida));
}

/// What an answer has to be recorded with; nothing when it is no "OK" or lacks it.
std::optional<DatosRegistro> DatosDe(const std::string& respuesta) {
  try {
    const RespuestaFirma leida(respuesta);
    if (leida.Conforme()) return leida.Registro();
  } catch (const Error&) {
    return std::nullopt;
  }
  return std::nullopt;
}

bool Consta(const std::string& documento, const DatosRegistro& datos) {
  return !ConexionActual().Open(ConsultaRegistro(documento, datos))->Eof();
}

bool Preguntar(const std::string& hechos, const std::string& pregunta) {
  return ui::CurrentToolkit().Show({hechos + "\n\n" + pregunta, "¡ Atención !", ui::Icon::kQuestion,
                                    ui::Buttons::kYesNo, ui::Answer::kNo}) == ui::Answer::kYes;
}

Pendiente Preguntar(const Notas& notas, const std::string& factura, bool registrable) {
  const std::string respuesta = notas[kRespuesta];
  const std::string hechos = factura + " se estaba enviando el " + notas[kCuando] +
                             " en el terminal " + notas["terminal"] +
                             " y no se sabe si ha llegado a su destino. " +
                             (respuesta.empty() ? "El firmador no dejó respuesta."
                                                : "El firmador respondió: " + respuesta);
  if (registrable && Preguntar(hechos, "¿La registra como enviada con esa respuesta?")) {
    return Pendiente::kRegistrar;
  }
  if (Preguntar(hechos, "¿La envía otra vez?")) return Pendiente::kNada;
  throw Error(kErrorFile, "modFactura_E",
              factura + " sigue dudosa: no se ha enviado ni registrado");
}

}  // namespace

std::unique_ptr<FileHold> ReservarFirmador(const fs::path& trabajo) {
  return Reservar(EntornoActual(), trabajo / kFirmadorOcupado, "El firmador lo está usando",
                  kEsperaCarpeta, [&](const Notas& notas) { RecogerRespuesta(trabajo, notas); });
}

void RecogerFirmaInterrumpida(const fs::path& trabajo) {
  if (!EntornoActual().FileExists(trabajo / kFirmadorOcupado)) return;
  AtenderInterrupciones(EntornoActual(), trabajo, kFirmadorOcupado, kFirmadorOcupado,
                        [&](const Notas& notas) { RecogerRespuesta(trabajo, notas); });
}

void AnotarFirma(FileHold& marca, FileHold& firmador, const fs::path& rutaMarca,
                 const EstadoFacturaE& estado) {
  const std::string cuando = FechaTexto(EntornoActual().Now());
  Anotar(firmador, {{kMarca, TextoRuta(rutaMarca)}, {kCuando, cuando}});
  Anotar(marca, {{kCuando, cuando},
                 {kDocumento, estado.identificadorLote},
                 {kRevision, std::to_string(estado.revisionUsada)}});
}

void AnotarRespuesta(FileHold& marca, const RespuestaFirma& respuesta) {
  try {
    if (!respuesta.Vacia()) Anotar(marca, {{kRespuesta, respuesta.Texto()}});
  } catch (const Error&) {
    return;
  }
}

std::int16_t RevisionAnotada(const Notas& notas) { return Entero<std::int16_t>(notas[kRevision]); }

RespuestaFirma RespuestaAnotada(const Notas& notas) { return RespuestaFirma(notas[kRespuesta]); }

Pendiente ResolverInterrumpido(const Notas& notas, const std::string& factura) {
  if (notas[kDocumento].empty()) return Pendiente::kNada;
  const auto datos = DatosDe(notas[kRespuesta]);
  if (datos && Consta(notas[kDocumento], *datos)) return Pendiente::kRegistrado;
  switch (Dudosas()) {
    case FacturasDudosas::kReenviar:
      return Pendiente::kNada;
    case FacturasDudosas::kRegistrar:
      if (datos) return Pendiente::kRegistrar;
      throw Error(kErrorFile, "modFactura_E",
                  factura + " está dudosa y no hay respuesta con la que registrarla");
    case FacturasDudosas::kPreguntar:
      break;
  }
  return Preguntar(notas, factura, datos.has_value());
}

}  // namespace facturae
}  // namespace kvraedi
