#include "frame/carpeta_anexos.h"

#include <array>

#include "kvraedi/error.h"

namespace kvraedi {
namespace {

constexpr std::array<const char*, 3> kNiveles = {"Ormo", "EDI", "DocAnexos"};

/// A file on its way to its final name; it goes when it does not get there.
class Provisional {
 public:
  Provisional(Entorno& entorno, std::filesystem::path ruta)
      : entorno_(entorno), ruta_(std::move(ruta)) {}
  ~Provisional() {
    try {
      if (!ruta_.empty() && entorno_.FileExists(ruta_)) entorno_.Delete(ruta_);
    } catch (const Error&) {  // what made it useless is the error to tell
    }
  }
  Provisional(const Provisional&) = delete;
  Provisional& operator=(const Provisional&) = delete;

  void Escribir(std::string_view contenido) {
    const auto escritor = entorno_.Create(ruta_);
    escritor->Write(contenido);
    escritor->Close();
  }
  void Publicar(const std::filesystem::path& final) {
    entorno_.Rename(ruta_, final);
    ruta_.clear();
  }

 private:
  Entorno& entorno_;
  std::filesystem::path ruta_;
};

}  // namespace

std::string NombreDeFichero(std::string_view ruta) {
  const std::size_t separador = ruta.find_last_of("/\\");
  const std::string_view nombre =
      separador == std::string_view::npos ? ruta : ruta.substr(separador + 1);
  if (nombre.empty() || nombre == "." || nombre == "..") {
    throw Error(kErrorFile, "anexos", "«" + std::string(ruta) + "» no es el nombre de un fichero");
  }
  return std::string(nombre);
}

CarpetaAnexos::CarpetaAnexos(Entorno& entorno)
    : entorno_(entorno), perfil_(entorno.ProfileFolder()), carpeta_(perfil_) {
  for (const char* nivel : kNiveles) carpeta_ /= nivel;
}

void CarpetaAnexos::Crear() {
  std::filesystem::path carpeta = perfil_;
  for (const char* nivel : kNiveles) {
    carpeta /= nivel;
    if (!entorno_.FolderExists(carpeta)) entorno_.MakeFolder(carpeta);
  }
}

void CarpetaAnexos::Guardar(std::string_view nombre, std::string_view contenido) {
  Provisional provisional(entorno_, carpeta_ / "~anexo.tmp");
  provisional.Escribir(contenido);
  provisional.Publicar(carpeta_ / NombreDeFichero(nombre));
}

std::string CarpetaAnexos::Leer(std::string_view nombre) {
  return entorno_.ReadFile(carpeta_ / NombreDeFichero(nombre));
}

void CarpetaAnexos::Abrir(std::string_view nombre) {
  entorno_.OpenWithDefaultProgram(carpeta_ / NombreDeFichero(nombre));
}

}  // namespace kvraedi
