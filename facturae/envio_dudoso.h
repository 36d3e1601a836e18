#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "facturae/documento.h"
#include "facturae/respuesta_firma.h"
#include "frame/marca.h"
#include "kvraedi/entorno.h"

namespace kvraedi::facturae {

// A sending whose signing program was started, and whose program was interrupted before the answer
// was recorded, may be delivered or not. The mark of the invoice tells of it.

/// The signing program of a profile, whose work folder that is, for this program alone. An answer
/// that it gave to an interrupted one goes to the mark of that invoice.
std::unique_ptr<FileHold> ReservarFirmador(const std::filesystem::path& trabajo);
/// Only the latter, when no program has the signing program.
void RecogerFirmaInterrumpida(const std::filesystem::path& trabajo);

/// Notes, just before the signing program is started, what it is going to send.
void AnotarFirma(FileHold& marca, FileHold& firmador, const std::filesystem::path& rutaMarca,
                 const EstadoFacturaE& estado);
/// Notes the answer, which the signing program has in its own place too: no failure counts.
void AnotarRespuesta(FileHold& marca, const RespuestaFirma& respuesta);

/// What an interrupted sending left to do.
enum class Pendiente {
  kNada,        ///< nothing had been sent, or it is to be sent again
  kRegistrado,  ///< nothing: it was recorded
  kRegistrar,   ///< recording the answer
};

/// The revision and the answer that the notes tell.
std::int16_t RevisionAnotada(const Notas& notas);
RespuestaFirma RespuestaAnotada(const Notas& notas);

/// `factura` is how texts call it. Asks the user, unless ResolverFacturasDudosas says what to do;
/// raises `Error` when the invoice is left as it is.
Pendiente ResolverInterrumpido(const Notas& notas, const std::string& factura);

}  // namespace kvraedi::facturae
