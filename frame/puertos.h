#pragma once

#include "kvraedi/adaptadores.h"

namespace kvraedi {

/// The adapters that the host installed; each raises `Error` when there is none.
Entorno& EntornoActual();
Suite& SuiteActual();

}  // namespace kvraedi
