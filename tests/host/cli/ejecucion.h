#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/cli.h"

namespace kvraedi::cli {

/// One run of the program inside the test.
struct Ejecucion {
  explicit Ejecucion(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    codigo = RunCli(args, out, err);
    resultado = out.str();
    mensajes = err.str();
  }

  bool Dice(std::string_view texto) const { return mensajes.find(texto) != std::string::npos; }

  int codigo = -1;
  std::string resultado;
  std::string mensajes;
};

}  // namespace kvraedi::cli
