#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// The file name in a path: what follows its last separator, "/" or "\\". Raises `Error` when that
/// names no file: "", "." or "..".
std::string NombreDeFichero(std::string_view ruta);

/// The user's folder with the copies of the attachments, Ormo/EDI/DocAnexos below the profile
/// folder. Names are taken by NombreDeFichero, so that none leads out of it.
class CarpetaAnexos {
 public:
  explicit CarpetaAnexos(Entorno& entorno);

  const std::filesystem::path& Ruta() const { return carpeta_; }
  /// Makes what is missing of it, one level at a time.
  void Crear();
  /// Writes a file of that name, or replaces it; when that fails the old one is left as it was.
  void Guardar(std::string_view nombre, std::string_view contenido);
  /// All bytes of the file of that name.
  std::string Leer(std::string_view nombre);
  /// Opens the file of that name with the system's program for it.
  void Abrir(std::string_view nombre);

 private:
  std::filesystem::path RutaDeNombre(std::string_view nombre) const;

  Entorno& entorno_;
  std::filesystem::path perfil_;
  std::filesystem::path carpeta_;
};

}  // namespace kvraedi
