#pragma once

#include <memory>

#include "kvraedi/impresion.h"

namespace kvraedi::cli {

/// What puts documents on paper; null when the program was built without Qt.
std::unique_ptr<Impresora> NuevaImpresora();

}  // namespace kvraedi::cli
