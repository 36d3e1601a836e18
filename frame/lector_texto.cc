#include "frame/lector_texto.h"

#include <utility>

#include "kvraedi/error.h"

namespace kvraedi {
namespace {

constexpr std::size_t kBloque = std::size_t{64} * 1024;

std::string_view SinRetorno(std::string_view linea) {
  if (linea.ends_with('\r')) linea.remove_suffix(1);
  return linea;
}

}  // namespace

LectorTexto::LectorTexto(std::unique_ptr<FileReader> fichero)
    : fichero_(std::move(fichero)), bloque_(kBloque) {}

bool LectorTexto::Llenar() {
  pendiente_ = {bloque_.data(), fichero_->Read(bloque_)};
  return !pendiente_.empty();
}

bool LectorTexto::Siguiente() {
  partida_.clear();
  bool algo = false;
  while (!pendiente_.empty() || Llenar()) {
    algo = true;
    const auto fin = pendiente_.find('\n');
    const std::string_view trozo = pendiente_.substr(0, fin);
    const bool entera = fin != std::string_view::npos;
    terminada_ = entera;
    pendiente_.remove_prefix(entera ? fin + 1 : pendiente_.size());
    if (entera && partida_.empty()) {
      linea_ = SinRetorno(trozo);
      ++numero_;
      return true;
    }
    if (partida_.size() + trozo.size() > kMasLarga) {
      throw Error(kErrorFile, "kvraedi",
                  "La línea " + std::to_string(numero_ + 1) + " del fichero es demasiado larga");
    }
    partida_.append(trozo);
    if (entera) break;
  }
  linea_ = SinRetorno(partida_);
  if (algo) ++numero_;
  return algo;
}

}  // namespace kvraedi
