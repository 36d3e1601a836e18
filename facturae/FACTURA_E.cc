#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "facturae/certificado.h"
#include "facturae/documento.h"
#include "facturae/envio_dudoso.h"
#include "facturae/firma.h"
#include "facturae/modFactura_E.h"
#include "facturae/registro_envio.h"
#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/carpeta_anexos.h"
#include "frame/fichero_provisional.h"
#include "frame/formato.h"
#include "frame/marca.h"
#include "frame/peticion_firma.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;
using facturae::ClaveDocumento;
using facturae::RespuestaFirma;

/// What one call of FACTURA_E is about.
struct Encargo {
  std::int32_t cliente;
  ClaveDocumento clave;
  bool exportar;
  fs::path rutaExportacion;
  std::int16_t revision;
  bool pendiente;
};

/// Folders of the unsigned and of the signed document.
struct Carpetas {
  fs::path sinFirmar;
  fs::path firmado;
};

Carpetas PrepararCarpetas(const Encargo& encargo) {
  if (encargo.exportar) return {encargo.rutaExportacion, encargo.rutaExportacion};
  const auto raiz = ParametroRuta("EDI_PathFichEnvios");
  if (raiz.empty()) {
    throw Error(kErrorItemNotFound, "modFactura_E", "No se ha indicado la carpeta de envíos");
  }
  Carpetas carpetas{raiz / "Temp", raiz / std::to_string(encargo.clave.ejercicio)};
  EntornoActual().MakeFolder(carpetas.firmado);
  EntornoActual().MakeFolder(carpetas.sinFirmar);
  return carpetas;
}

fs::path RutaSinFirmar(const Carpetas& carpetas, const std::string& documento) {
  return carpetas.sinFirmar / (documento + "_sinFirmar.xml");
}

/// The document gets its name when it is whole.
void GuardarDocumento(DocumentoXml& xml, const fs::path& fichero) {
  FicheroProvisional provisional(EntornoActual(), RutaParcial(fichero));
  xml.Guardar(provisional.Ruta());
  provisional.Publicar(fichero);
}

/// An error with the answer that it leaves unrecorded.
std::string ConRespuesta(const Error& error, const RespuestaFirma& respuesta) {
  return error.Description() + ". Respuesta del firmador: " + respuesta.Texto();
}

/// Records the sending that the answer confirms and gives back its line of the log. What can be
/// wrong with the answer shows before anything is deleted.
std::string RegistrarEnvio(const ClaveDocumento& clave, const RespuestaFirma& respuesta,
                           const fs::path& sinFirmar) {
  const auto datos = respuesta.Registro();
  const std::string insercion = facturae::InsertarEnvio(clave, facturae::Estado(), datos);
  if (EntornoActual().FileExists(sinFirmar)) EntornoActual().Delete(sinFirmar);
  ConexionActual().Execute(facturae::BorrarEnvios(clave));
  ConexionActual().Execute(insercion);
  return " Código Registro: " + datos.registro + " Código Seguimiento: " + datos.seguimiento +
         ", Fecha Registro: " + datos.fechaTexto;
}

/// What an answer leads to: the line of the log, "" for none.
std::string Atender(const Encargo& encargo, const RespuestaFirma& respuesta,
                    const fs::path& sinFirmar) {
  if (respuesta.Vacia()) return " Error: El programa de envío al WS ha fallado";
  if (!respuesta.Conforme()) return " Error: " + respuesta.Texto();
  return encargo.exportar ? "" : RegistrarEnvio(encargo.clave, respuesta, sinFirmar);
}

bool AtenderRespuesta(const Encargo& encargo, const RespuestaFirma& respuesta,
                      const fs::path& sinFirmar, const fs::path& trabajo) {
  facturae::RegistroRespuestas registro(trabajo / "respuesta.txt");
  try {
    const std::string linea = Atender(encargo, respuesta, sinFirmar);
    if (!linea.empty()) registro.Anotar(linea);
  } catch (const Error& error) {
    registro.Anotar(" Error: " + ConRespuesta(error, respuesta));
    throw;
  }
  registro.Cerrar();
  return respuesta.Conforme();
}

/// What the service answered must not be lost with an error.
bool Concluir(const Encargo& encargo, const RespuestaFirma& respuesta, const fs::path& sinFirmar,
              const fs::path& trabajo) {
  constexpr std::size_t kCaracteresDeCaja = 1000;  // all of it stands in the log
  try {
    return AtenderRespuesta(encargo, respuesta, sinFirmar, trabajo);
  } catch (const Error& error) {
    const std::string texto = ConRespuesta(error, respuesta);
    throw Error(error.Number(), error.Source(),
                std::string(PrimerosCaracteres(texto, kCaracteresDeCaja)));
  }
}

void AvisarPeticion(const fs::path& peticion) {
  Avisar("No se ha podido borrar " + TextoRuta(peticion) +
             ", que lleva la contraseña del certificado. Bórrelo.",
         "¡ Atención !", ui::Icon::kExclamation);
}

std::string NombreFactura(const ClaveDocumento& clave) {
  return clave.EsTicket()
             ? "La factura del ticket " + std::to_string(clave.codigoFT)
             : "La factura " + std::to_string(clave.serie) + "/" + std::to_string(clave.codigo);
}

/// One sending, from the moment when the invoice is this terminal's alone.
class Envio {
 public:
  Envio(const Encargo& encargo, const Carpetas& carpetas, fs::path trabajo)
      : encargo_(encargo),
        carpetas_(carpetas),
        trabajo_(std::move(trabajo)),
        nombre_(NombreFactura(encargo.clave)),
        documento_(
            facturae::IdentificadorDocumento(EmpresaActual().CodigoEmpresa(), encargo.clave)),
        rutaMarca_(carpetas.sinFirmar / (documento_ + ".enviando")) {}

  /// True when an interrupted sending only had to be recorded, which has been done. Raises when
  /// the invoice is being sent, has been sent, or is left in doubt.
  bool Reservar();
  FileHold& Marca() { return *marca_; }
  const fs::path& RutaMarca() const { return rutaMarca_; }

 private:
  void Atender(const Notas& notas);
  bool YaEnviada() const;

  const Encargo& encargo_;
  const Carpetas& carpetas_;
  fs::path trabajo_;
  std::string nombre_;
  std::string documento_;
  fs::path rutaMarca_;
  std::unique_ptr<FileHold> marca_;
  bool registrada_ = false;
  bool consta_ = false;
};

bool Envio::Reservar() {
  facturae::RecogerFirmaInterrumpida(trabajo_);
  marca_ = kvraedi::Reservar(EntornoActual(), rutaMarca_, nombre_ + " la está enviando",
                             kEsperaBreve, [this](const Notas& notas) { Atender(notas); });
  if (!registrada_ && encargo_.pendiente && YaEnviada()) ThrowYaEnviada(nombre_);
  return registrada_;
}

void Envio::Atender(const Notas& notas) {
  const auto queda = facturae::ResolverInterrumpido(notas, nombre_);
  consta_ = queda == facturae::Pendiente::kRegistrado;
  if (queda != facturae::Pendiente::kRegistrar) return;
  auto& estado = facturae::Estado();
  estado.identificadorLote = documento_;
  estado.revisionUsada = facturae::RevisionAnotada(notas);
  registrada_ = Concluir(encargo_, facturae::RespuestaAnotada(notas),
                         RutaSinFirmar(carpetas_, documento_), trabajo_);
}

/// Of an invoice that is known as pending, a signed document may be that of a delivery that failed;
/// only then it is asked for its sending.
bool Envio::YaEnviada() const {
  return consta_ || (EntornoActual().FileExists(carpetas_.firmado / (documento_ + ".xsig")) &&
                     facturae::TieneEnvio(encargo_.clave));
}

/// Signs, and sends unless `envio` is null.
bool FirmarDocumento(const Encargo& encargo, const Carpetas& carpetas, const fs::path& trabajo,
                     const facturae::Certificado& certificado, DocumentoXml& xml, Envio* envio) {
  const auto& estado = facturae::Estado();
  const fs::path sinFirmar = RutaSinFirmar(carpetas, estado.identificadorLote);
  const fs::path salida = trabajo / kRespuestaFirma;
  const auto firmador = facturae::ReservarFirmador(trabajo);
  facturae::FicheroSecreto entrada(EntornoActual(), trabajo / kPeticionFirma);
  facturae::PrepararFirma(xml, entrada, salida,
                          {sinFirmar, carpetas.firmado / (estado.identificadorLote + ".xsig"),
                           certificado, encargo.exportar, estado.emailEmisor});
  if (envio != nullptr) {
    facturae::AnotarFirma(envio->Marca(), *firmador, envio->RutaMarca(), estado);
  }
  const RespuestaFirma respuesta = facturae::Firmar(xml, entrada, salida);
  if (envio != nullptr) facturae::AnotarRespuesta(envio->Marca(), respuesta);
  const bool conforme = Concluir(encargo, respuesta, sinFirmar, trabajo);
  if (!entrada.Retirar()) AvisarPeticion(entrada.Ruta());
  return conforme;
}

bool Generar(const Encargo& encargo) {
  const Carpetas carpetas = PrepararCarpetas(encargo);
  CarpetaAnexos anexos(EntornoActual());
  anexos.Crear();
  const fs::path trabajo = anexos.Ruta().parent_path();
  std::optional<Envio> envio;
  if (!encargo.exportar && envio.emplace(encargo, carpetas, trabajo).Reservar()) return true;
  auto& estado = facturae::Estado();
  const auto xml = SuiteActual().NuevoDocumentoXml(EntornoActual());
  facturae::ConstruirDocumento(estado, *xml, encargo.cliente, encargo.clave, encargo.revision);
  if (estado.identificadorLote.empty()) {  // nothing of it may be signed, let alone delivered
    throw Error(kErrorItemNotFound, "modFactura_E", "La factura no está en la base de datos");
  }
  GuardarDocumento(*xml, RutaSinFirmar(carpetas, estado.identificadorLote));

  const auto certificado = facturae::ElegirCertificado(encargo.clave.serie);
  if (certificado.ruta.empty()) {
    Avisar("Debe especificar la ruta del Certificado Digital usado para firmar.", "¡ Atención !",
           ui::Icon::kInformation);
    return false;
  }
  return FirmarDocumento(encargo, carpetas, trabajo, certificado, *xml, envio ? &*envio : nullptr);
}

}  // namespace

bool FACTURA_E(std::int32_t cliente, std::int16_t ejercicio, std::int16_t serie,
               std::int32_t codigo, std::int16_t tipoDoc, std::int16_t tipo, std::int16_t almacenFT,
               std::int16_t cajaFT, const FechaHora& fechaFT, std::int32_t codigoFT, bool exportar,
               const std::string& rutaExportacion, std::int16_t revision, bool pendiente) {
  bool conforme = false;
  return Accion("modFactura_E:FACTURA_E",
                [&] {
                  conforme = Generar({cliente,
                                      {ejercicio, serie, codigo, tipoDoc, tipo, almacenFT, cajaFT,
                                       fechaFT, codigoFT},
                                      exportar,
                                      RutaDe(rutaExportacion),
                                      revision,
                                      pendiente});
                }) &&
         conforme;
}

void EsperaProceso(std::int64_t proceso) { EntornoActual().Wait(proceso); }

}  // namespace kvraedi
