#include "frame/fichero_provisional.h"

#include <utility>

#include "kvraedi/error.h"

namespace kvraedi {

std::filesystem::path RutaParcial(std::filesystem::path final) {
  final += ".parcial";
  return final;
}

FicheroProvisional::FicheroProvisional(Entorno& entorno, std::filesystem::path ruta)
    : entorno_(entorno), ruta_(std::move(ruta)) {}

FicheroProvisional::~FicheroProvisional() {
  try {
    if (!ruta_.empty() && entorno_.FileExists(ruta_)) entorno_.Delete(ruta_);
  } catch (const Error&) {  // what made it useless is the error to tell
  }
}

void FicheroProvisional::Publicar(const std::filesystem::path& final) {
  entorno_.Rename(ruta_, final);
  ruta_.clear();
}

}  // namespace kvraedi
