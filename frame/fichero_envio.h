#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "frame/escritor_texto.h"
#include "kvraedi/entorno.h"

namespace kvraedi {

/// A message file on its way out. It is written in a work folder, then copied beside its final
/// name; the last step, after everything that can fail has been done, is a rename. What has not
/// been published when the object goes is removed.
class FicheroEnvio {
 public:
  /// Creates the file, empty, in the work folder. Both folders must exist.
  FicheroEnvio(Entorno& entorno, const std::filesystem::path& trabajo,
               const std::filesystem::path& destino, const std::string& nombre);
  ~FicheroEnvio();
  FicheroEnvio(const FicheroEnvio&) = delete;
  FicheroEnvio& operator=(const FicheroEnvio&) = delete;

  EscritorTexto& Texto() { return *escritor_; }
  /// Closes the file, copies it to the destination under a name of its own and takes it out of the
  /// work folder.
  void Preparar();
  /// Gives the copy its final name. When that fails the copy stays, and the error says where.
  void Publicar();

 private:
  void Retirar(std::filesystem::path& fichero) noexcept;

  Entorno& entorno_;
  std::filesystem::path trabajo_;  // each path is empty when there is no such file
  std::filesystem::path copia_;
  std::filesystem::path final_;
  std::unique_ptr<EscritorTexto> escritor_;
};

}  // namespace kvraedi
