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

/// Has a document signed: writes the request into the work folder, starts the signing program and
/// waits until it ends. The request, which holds the password, is there for its owner only and no
/// longer than that. No answer is the empty one; one that cannot be read raises `Error`.
RespuestaFirma Firmar(DocumentoXml& xml, const std::filesystem::path& trabajo,
                      const PeticionFirma& peticion);

}  // namespace kvraedi::facturae
