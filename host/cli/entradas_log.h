#pragma once

#include <filesystem>
#include <string>

#include "kvraedi/entorno.h"

namespace kvraedi::cli {

/// What a run of the component adds to a log file.
class EntradasLog {
 public:
  /// Remembers what the file holds; it need not be there.
  EntradasLog(Entorno& entorno, std::filesystem::path fichero);
  /// The entries added since. Old ones may have gone from the beginning.
  std::string Nuevas() const;

 private:
  std::string Leer() const;

  Entorno& entorno_;
  std::filesystem::path fichero_;
  std::string antes_;
};

}  // namespace kvraedi::cli
