#pragma once

#include "kvraedi/entorno.h"

namespace kvraedi {

// Files of the user's work folder, Ormo/EDI below the profile folder, that the signing program of
// electronic invoices and whoever starts it use.

inline constexpr const char* kPeticionFirma = "entrada.xml";  ///< with the certificate's password
inline constexpr const char* kRespuestaFirma = "salida.xml";
inline constexpr const char* kFirmadorOcupado = "firmador.ocupado";  ///< held while one signs

/// Removes the request that a program left that was killed. No failure counts.
void BorrarPeticionAbandonada(Entorno& entorno) noexcept;

}  // namespace kvraedi
