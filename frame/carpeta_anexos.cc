#include "frame/carpeta_anexos.h"

#include <array>

#include "frame/fichero_provisional.h"
#include "frame/ruta.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

constexpr std::array<const char*, 3> kNiveles = {"Ormo", "EDI", "DocAnexos"};

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

std::filesystem::path CarpetaAnexos::RutaDeNombre(std::string_view nombre) const {
  return carpeta_ / RutaDe(NombreDeFichero(nombre));
}

void CarpetaAnexos::Guardar(std::string_view nombre, std::string_view contenido) {
  FicheroProvisional provisional(entorno_, carpeta_ / "~anexo.tmp");
  const auto escritor = entorno_.Create(provisional.Ruta());
  escritor->Write(contenido);
  escritor->Close();
  provisional.Publicar(RutaDeNombre(nombre));
}

std::string CarpetaAnexos::Leer(std::string_view nombre) {
  return entorno_.ReadFile(RutaDeNombre(nombre));
}

void CarpetaAnexos::Abrir(std::string_view nombre) {
  entorno_.OpenWithDefaultProgram(RutaDeNombre(nombre));
}

}  // namespace kvraedi
