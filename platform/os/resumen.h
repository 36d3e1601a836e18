#pragma once

#include "kvraedi/entorno.h"

namespace kvraedi::os {

/// SHA-256 and number of the bytes that are left to read. Raises `Error`.
FileDigest Resumir(FileReader& fichero);

}  // namespace kvraedi::os
