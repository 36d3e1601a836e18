#pragma once

#include <filesystem>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// The name beside the final one that a file has until it is whole.
std::filesystem::path RutaParcial(std::filesystem::path final);

/// A file that is written under a name of its own until it is whole. It goes with the object unless
/// it was published.
class FicheroProvisional {
 public:
  FicheroProvisional(Entorno& entorno, std::filesystem::path ruta);
  ~FicheroProvisional();
  FicheroProvisional(const FicheroProvisional&) = delete;
  FicheroProvisional& operator=(const FicheroProvisional&) = delete;

  const std::filesystem::path& Ruta() const { return ruta_; }
  /// Gives it its final name, in the same folder, in place of what has it.
  void Publicar(const std::filesystem::path& final);

 private:
  Entorno& entorno_;
  std::filesystem::path ruta_;  // empty once it is published
};

}  // namespace kvraedi
