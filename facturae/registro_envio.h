#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "facturae/documento.h"
#include "facturae/respuesta_firma.h"
#include "frame/escritor_texto.h"

namespace kvraedi::facturae {

/// The log of the signer's answers, opened at its end; it takes one line at most.
class RegistroRespuestas {
 public:
  explicit RegistroRespuestas(const std::filesystem::path& fichero);

  /// Writes the moment and the text.
  void Anotar(std::string_view texto);
  void Cerrar() { fichero_.Cerrar(); }

 private:
  EscritorTexto fichero_;
};

/// Whether the document has been sent through this platform.
bool TieneEnvio(const ClaveDocumento& clave);

/// A row when a sending of that document was recorded with what the service gave for it.
std::string ConsultaRegistro(const std::string& documento, const DatosRegistro& datos);
/// The statement that removes every earlier sending of the document, whatever its platform.
std::string BorrarEnvios(const ClaveDocumento& clave);
/// The statement that records the sending of the document that `estado` describes.
std::string InsertarEnvio(const ClaveDocumento& clave, const EstadoFacturaE& estado,
                          const DatosRegistro& datos);

}  // namespace kvraedi::facturae
