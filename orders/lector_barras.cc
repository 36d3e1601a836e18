#include "orders/lector_barras.h"

#include <algorithm>
#include <utility>

#include "frame/codigo1252.h"
#include "frame/formato.h"
#include "frame/numero.h"
#include "kvraedi/error.h"

namespace kvraedi {

LectorBarras::LectorBarras(std::string nombre, std::unique_ptr<FileReader> fichero)
    : nombre_(std::move(nombre)), lector_(std::move(fichero)) {}

bool LectorBarras::Siguiente() {
  while (lector_.Siguiente()) {
    if (lector_.Linea().find('|') == std::string_view::npos) continue;
    Partir(lector_.Linea());
    return true;
  }
  return false;
}

void LectorBarras::Partir(std::string_view linea) {
  const auto ascii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
  if (!std::all_of(linea.begin(), linea.end(), ascii)) {
    utf8_ = Leer1252(linea);
    linea = utf8_;
  }
  campos_.clear();
  while (campos_.size() < kMasCampos) {
    const auto barra = linea.find('|');
    campos_.push_back(linea.substr(0, barra));
    if (barra == std::string_view::npos) break;
    linea.remove_prefix(barra + 1);
  }
}

std::string_view LectorBarras::Texto(std::size_t campo) const {
  return Tiene(campo) ? campos_[campo] : std::string_view();
}

Currency LectorBarras::Numero(std::size_t campo) const {
  const auto numero = NumeroRecibido(Texto(campo));
  if (!numero) Rechazar(campo, "se esperaba un número");
  return *numero;
}

void LectorBarras::Rechazar(std::size_t campo, std::string_view motivo) const {
  constexpr std::size_t kMasTexto = 60;
  std::string texto = nombre_ + ", línea " + std::to_string(lector_.Numero()) + ", registro " +
                      std::string(Etiqueta()) + ", campo " + std::to_string(campo) + ": ";
  texto.append(motivo).append(", no \"").append(PrimerosCaracteres(Texto(campo), kMasTexto));
  throw Error(kErrorTypeMismatch, "kvraedi", texto + '"');
}

}  // namespace kvraedi
