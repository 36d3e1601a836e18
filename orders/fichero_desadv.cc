#include "orders/fichero_desadv.h"

#include <string_view>
#include <utility>

#include "frame/formato.h"
#include "frame/ruta.h"
#include "orders/error_desadv.h"

namespace kvraedi::desadv {
namespace {

constexpr std::size_t kAncho = 100;  // of the staging column that keeps the name

}  // namespace

Fichero::Fichero(Entorno& entorno, std::filesystem::path raiz, std::string nombre)
    : entorno_(entorno), raiz_(std::move(raiz)), nombre_(std::move(nombre)) {}

void Fichero::ComprobarNombre() const {
  const std::string_view inicio = PrimerosCaracteres(nombre_, kAncho);
  if (EsNombreDeFichero(nombre_) && inicio.size() == nombre_.size()) return;
  Fallar("El nombre de fichero \"" + std::string(inicio) + "\" no es válido");
}

std::filesystem::path Fichero::Ruta(const char* carpeta) const {
  return raiz_ / carpeta / RutaDe(nombre_);
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
  return EsNombreDeFichero(nombre_) && (entorno_.FileExists(EnRx()) || EstaEnOk());
}

void Fichero::CopiarAError() { Copiar(entorno_.FileExists(EnRx()) ? EnRx() : Ruta("OK"), "Error"); }

void Fichero::Retirar() {
  if (EstaEnOk()) entorno_.Delete(Ruta("OK"));
  if (entorno_.FileExists(EnRx())) BorrarDeRx();
  if (entorno_.FileExists(RutaLeido(EnRx()))) Soltar();
}

}  // namespace kvraedi::desadv
