#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kvraedi {

/// A folder of its own for a test, with blanks and letters outside ASCII in its name.
class CarpetaTemporal {
 public:
  CarpetaTemporal() {
    std::string plantilla =
        (std::filesystem::temp_directory_path() / "kvraedi ñu año XXXXXX").string();
    ruta_ = mkdtemp(plantilla.data());
  }
  ~CarpetaTemporal() {
    std::error_code ignorado;
    std::filesystem::remove_all(ruta_, ignorado);
  }
  CarpetaTemporal(const CarpetaTemporal&) = delete;
  CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;

  std::filesystem::path operator/(const std::string& nombre) const { return ruta_ / nombre; }
  const std::filesystem::path& Ruta() const { return ruta_; }

 private:
  std::filesystem::path ruta_;
};

inline std::string Contenido(const std::filesystem::path& fichero) {
  std::ifstream entrada(fichero, std::ios::binary);
  return {std::istreambuf_iterator<char>(entrada), {}};
}

}  // namespace kvraedi
