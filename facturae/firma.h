#pragma once

#include <filesystem>
#include <string>

#include "facturae/certificado.h"
#include "facturae/respuesta_firma.h"
#include "kvraedi/suite.h"

namespace kvraedi::facturae {

/// What the signing program is asked for.
struct PeticionFirma {
  std::filesystem::path documento;
  std::filesystem::path firmado;  ///< where the signed document is to be written
  Certificado certificado;
  bool exportar = false;  ///< sign only, without delivering
  std::string email;      ///< the seller's
};

/// A file that must not be left behind: it goes with the object, unless it was removed before.
class FicheroSecreto {
 public:
  /// One that an interrupted run left there goes first.
  FicheroSecreto(Entorno& entorno, std::filesystem::path ruta);
  ~FicheroSecreto() { Retirar(); }
  FicheroSecreto(const FicheroSecreto&) = delete;
  FicheroSecreto& operator=(const FicheroSecreto&) = delete;

  const std::filesystem::path& Ruta() const { return ruta_; }
  /// Whether it is gone.
  bool Retirar() noexcept;

 private:
  Entorno& entorno_;
  std::filesystem::path ruta_;
};

/// Writes the request, which holds the password and is there for its owner only, and removes an
/// answer that lies in `salida`.
void PrepararFirma(DocumentoXml& xml, const FicheroSecreto& entrada,
                   const std::filesystem::path& salida, const PeticionFirma& peticion);
/// Has the document signed: starts the signing program, waits until it ends and removes the
/// request; that it could not be removed keeps nobody from reading the answer. No answer is the
/// empty one.
RespuestaFirma Firmar(DocumentoXml& xml, FicheroSecreto& entrada,
                      const std::filesystem::path& salida);

/// The answer that lies in `salida`, or what was left instead of one.
RespuestaFirma LeerRespuesta(DocumentoXml& xml, const std::filesystem::path& salida);

}  // namespace kvraedi::facturae
