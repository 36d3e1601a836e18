#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace kvraedi {

/// A file of the tests' folder: a script, or what a file has to be.
inline std::string Guion(const std::string& nombre) {
  std::ifstream fichero(KVRAEDI_PRUEBAS "/" + nombre, std::ios::binary);
  if (!fichero) throw std::runtime_error("no se puede leer " + nombre);
  return {std::istreambuf_iterator<char>(fichero), {}};
}

}  // namespace kvraedi
