#pragma once

#include <string>
#include <vector>

#include "host/cli/ordenes.h"

namespace kvraedi::cli {

/// What a command line asks for.
struct Peticion {
  const Orden* orden = nullptr;
  Argumentos argumentos;
  std::string texto;  ///< help or version to show instead of running a command
};

/// Reads the words after the program's name. Raises Fallo(kUsoErroneo) with a Spanish text.
Peticion Analizar(const std::vector<std::string>& palabras);

}  // namespace kvraedi::cli
