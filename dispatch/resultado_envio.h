#pragma once

#include "kvraedi/resultado_envio.h"

namespace kvraedi {

/// Forgets the last result and gives back the record for that of the action that begins.
ResultadoEnvio& EmpezarResultadoEnvio();

}  // namespace kvraedi
