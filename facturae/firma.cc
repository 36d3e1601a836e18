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

/// A file that must not be left behind: it goes with the object, unless it was removed before.
class FicheroSecreto {
 public:
  /// One that an interrupted run left there goes first.
  FicheroSecreto(Entorno& entorno, fs::path ruta) : entorno_(entorno), ruta_(std::move(ruta)) {
    Retirar();
  }
  ~FicheroSecreto() {
    try {
      Retirar();
    } catch (const Error&) {  // the error that leads here is the one to tell
    }
  }
  FicheroSecreto(const FicheroSecreto&) = delete;
  FicheroSecreto& operator=(const FicheroSecreto&) = delete;

  const fs::path& Ruta() const { return ruta_; }
  void Retirar() {
    if (entorno_.FileExists(ruta_)) entorno_.Delete(ruta_);
  }

 private:
  Entorno& entorno_;
  fs::path ruta_;
};

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

RespuestaFirma LeerRespuesta(DocumentoXml& xml, const fs::path& fichero) {
  Entorno& entorno = EntornoActual();
  if (!entorno.FileExists(fichero) || entorno.ReadFile(fichero).empty()) return RespuestaFirma("");
  xml.Cargar(fichero);
  return RespuestaFirma(xml.LeerTexto("nombre"));
}

}  // namespace

RespuestaFirma Firmar(DocumentoXml& xml, const fs::path& trabajo, const PeticionFirma& peticion) {
  Entorno& entorno = EntornoActual();
  const fs::path salida = trabajo / "salida.xml";
  FicheroSecreto entrada(entorno, trabajo / "entrada.xml");
  EscribirPeticion(xml, peticion, entrada.Ruta());
  if (entorno.FileExists(salida)) entorno.Delete(salida);
  EsperaProceso(
      entorno.Start(entorno.ComponentFolder() / ".." / "EDI" / "FacturaE" / "FirmadorPortal"));
  entrada.Retirar();
  return LeerRespuesta(xml, salida);
}

}  // namespace kvraedi::facturae
