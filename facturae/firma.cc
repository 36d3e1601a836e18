#include "facturae/firma.h"

#include "facturae/modFactura_E.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "kvraedi/error.h"

namespace kvraedi::facturae {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPolitica =
    "http://www.facturae.es/politica_de_firma_formato_facturae/"
    "politica_de_firma_formato_facturae_v3_1.pdf";
constexpr std::string_view kHashPolitica = "Ohixl6upD6av8N7pEvDABhEL6hM=";

void EscribirPeticion(DocumentoXml& xml, const PeticionFirma& peticion, const fs::path& fichero) {
  xml.Nuevo();
  const NodoXml entrada = xml.CrearRaiz("entrada");
  xml.ElementoTexto(entrada, "politica", kPolitica);
  xml.ElementoTexto(entrada, "hashPolitica", kHashPolitica);
  xml.ElementoTexto(entrada, "URIPolitica", kPolitica);
  xml.ElementoTexto(entrada, "rutaXML", TextoRuta(peticion.documento));
  xml.ElementoTexto(entrada, "rutaXMLFirmada", TextoRuta(peticion.firmado));
  xml.ElementoTexto(entrada, "rutaCertificado", peticion.certificado.ruta);
  xml.ElementoTexto(entrada, "password", peticion.certificado.password);
  xml.ElementoTexto(entrada, "exportar", peticion.exportar ? "1" : "0");
  xml.ElementoTexto(entrada, "mail", peticion.email);
  xml.Guardar(fichero, AccesoFichero::kSoloPropietario);
}

}  // namespace

FicheroSecreto::FicheroSecreto(Entorno& entorno, fs::path ruta)
    : entorno_(entorno), ruta_(std::move(ruta)) {
  if (entorno_.FileExists(ruta_)) entorno_.Delete(ruta_);
}

bool FicheroSecreto::Retirar() noexcept {
  try {
    if (entorno_.FileExists(ruta_)) entorno_.Delete(ruta_);
    return true;
  } catch (const Error&) {
    return false;
  }
}

/// An "OK" that is not where it belongs is no empty answer: the invoice may be delivered.
RespuestaFirma LeerRespuesta(DocumentoXml& xml, const fs::path& fichero) {
  Entorno& entorno = EntornoActual();
  RespuestaFirma bruta(entorno.FileExists(fichero) ? entorno.ReadFile(fichero) : "");
  if (bruta.Vacia()) return bruta;
  try {
    xml.Cargar(fichero);
  } catch (const Error& error) {
    return {bruta.Texto(), error.Description()};
  }
  RespuestaFirma respuesta(xml.LeerTexto("nombre"));
  if (!respuesta.Vacia() || bruta.Texto().find("OK") == std::string::npos) return respuesta;
  return {bruta.Texto(), "El fichero " + TextoRuta(fichero) + " no lleva el elemento «nombre»"};
}

void PrepararFirma(DocumentoXml& xml, const FicheroSecreto& entrada, const fs::path& salida,
                   const PeticionFirma& peticion) {
  EscribirPeticion(xml, peticion, entrada.Ruta());
  if (EntornoActual().FileExists(salida)) EntornoActual().Delete(salida);
}

RespuestaFirma Firmar(DocumentoXml& xml, FicheroSecreto& entrada, const fs::path& salida) {
  Entorno& entorno = EntornoActual();
  EsperaProceso(
      entorno.Start(entorno.ComponentFolder() / ".." / "EDI" / "FacturaE" / "FirmadorPortal"));
  entrada.Retirar();
  return LeerRespuesta(xml, salida);
}

}  // namespace kvraedi::facturae
