#pragma once

#include <filesystem>
#include <string>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What a COACSU run costs at least: the same statements prepared on the bare library, the texts of
/// every row copied, and a file of as many bytes, handed over in blocks.
class SueloCoacsu {
 public:
  explicit SueloCoacsu(const BaseSuelo& base);
  void Generar(const std::filesystem::path& fichero);

 private:
  void Mensaje();
  void Anadir(std::size_t bytes);
  void Vaciar();

  SentenciaSuelo resumen_, lineas_;
  int fichero_ = -1;
  std::string fila_;
  std::string bloque_;
};

}  // namespace kvraedi::bench
