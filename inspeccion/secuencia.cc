#include "inspeccion/secuencia.h"

#include <algorithm>

namespace kvraedi::inspeccion {

Secuencia::Secuencia(std::span<const ReglaRegistro> reglas)
    : reglas_(reglas), vistos_(reglas.size()) {}

const ReglaRegistro* Secuencia::Regla(std::string_view tag) const {
  const auto regla =
      std::find_if(reglas_.begin(), reglas_.end(), [&](const auto& una) { return una.tag == tag; });
  return regla == reglas_.end() ? nullptr : &*regla;
}

bool Secuencia::Empieza(std::string_view tag) const {
  const ReglaRegistro* const regla = Regla(tag);
  return regla != nullptr && regla->rango == 0;
}

std::string_view Secuencia::Reparo(std::string_view tag) {
  const ReglaRegistro* const regla = Regla(tag);
  if (regla == nullptr) return "registro desconocido";
  if (regla->rango == 0) std::fill(vistos_.begin(), vistos_.end(), false);
  vistos_[static_cast<std::size_t>(regla - reglas_.data())] = true;
  const bool enSuSitio = rango_ >= regla->desde && rango_ <= regla->hasta;
  rango_ = regla->rango;
  return enSuSitio ? "" : "registro fuera de orden";
}

std::vector<std::string_view> Secuencia::Faltan() const {
  std::vector<std::string_view> faltan;
  if (rango_ < 0) return faltan;
  for (std::size_t i = 0; i < reglas_.size(); ++i) {
    if (reglas_[i].obligatorio && !vistos_[i]) faltan.push_back(reglas_[i].tag);
  }
  return faltan;
}

}  // namespace kvraedi::inspeccion
