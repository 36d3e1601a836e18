#include "orders/fichero_desadv.h"

#include <string_view>
#include <utility>

#include "frame/formato.h"
#include "orders/error_desadv.h"

namespace kvraedi::desadv {
namespace {

constexpr std::size_t kAncho = 100;  // of the staging column that keeps the name

/// Of a file in a folder; anything else leads elsewhere.
bool EsNombre(const std::string& nombre) {
  constexpr std::string_view kSeparadores("/\\\0", 3);
  return !nombre.empty() && nombre != "." && nombre != ".." &&
         nombre.find_first_of(kSeparadores) == std::string::npos;
}

}  // namespace

Fichero::Fichero(Entorno& entorno, std::filesystem::path raiz, std::string nombre)
    : entorno_(entorno), raiz_(std::move(raiz)), nombre_(std::move(nombre)) {}

void Fichero::ComprobarNombre() const {
  const std::string_view inicio = PrimerosCaracteres(nombre_, kAncho);
  if (EsNombre(nombre_) && inicio.size() == nombre_.size()) return;
  Fallar("El nombre de fichero \"" + std::string(inicio) + "\" no es válido");
}

std::filesystem::path Fichero::Ruta(const char* carpeta) const {
  return raiz_ / carpeta / std::u8string(nombre_.begin(), nombre_.end());
}

void Fichero::Copiar(const std::filesystem::path& origen, const char* carpeta) {
  entorno_.MakeFolder(raiz_ / carpeta);
  entorno_.Copy(origen, Ruta(carpeta));
}

void Fichero::CopiarAOk() {
  Copiar(EnRx(), "OK");
  enOk_ = true;
}

bool Fichero::Esta() const {
  return EsNombre(nombre_) && (entorno_.FileExists(EnRx()) || EstaEnOk());
}

void Fichero::CopiarAError() { Copiar(entorno_.FileExists(EnRx()) ? EnRx() : Ruta("OK"), "Error"); }

void Fichero::Retirar() {
  if (EstaEnOk()) entorno_.Delete(Ruta("OK"));
  if (entorno_.FileExists(EnRx())) BorrarDeRx();
}

}  // namespace kvraedi::desadv
