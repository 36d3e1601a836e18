#pragma once

#include <filesystem>

#include "kvraedi/export.h"

namespace kvraedi {

/// How a sending or an export of the invoice list ended, for hosts that have no person in front of
/// the screen.
struct ResultadoEnvio {
  bool completo = false;          ///< everything that had to be sent or exported was
  std::filesystem::path resumen;  ///< the file a summary message was added to; empty without one
};

/// Of the last "Trasmitir" or "Exportar" of `clsFacturacionEmision`'s screen; not complete before
/// the first. Like the session it is one record of the process.
KVRAEDI_API const ResultadoEnvio& UltimoResultadoEnvio();

}  // namespace kvraedi
