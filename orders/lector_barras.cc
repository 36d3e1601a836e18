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

bool LectorBarras::LeerLinea() {
  try {
    return lector_.Siguiente();
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(), nombre_ + ": " + error.Description());
  }
}

bool LectorBarras::Siguiente() {
  while (LeerLinea()) {
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

std::string_view LectorBarras::Texto(std::size_t campo, std::size_t ancho) const {
  const std::string_view texto = Texto(campo);
  const auto control = [](char letra) { return letra >= 0 && letra < ' ' && letra != '\t'; };
  if (std::any_of(texto.begin(), texto.end(), control)) {
    Rechazar(campo, "se esperaba un texto sin caracteres de control");
  }
  if (texto.size() > ancho && PrimerosCaracteres(texto, ancho).size() != texto.size()) {
    Rechazar(campo, "se esperaba un texto de " + std::to_string(ancho) + " caracteres como máximo");
  }
  return texto;
}

std::string LectorBarras::Lugar() const {
  return nombre_ + ", línea " + std::to_string(lector_.Numero()) + ", registro " +
         std::string(Etiqueta());
}

Currency LectorBarras::Numero(std::size_t campo) const {
  const auto numero = NumeroRecibido(Texto(campo));
  if (!numero) Rechazar(campo, "se esperaba un número");
  return *numero;
}

void LectorBarras::Rechazar(std::size_t campo, std::string_view motivo) const {
  constexpr std::size_t kMasTexto = 60;
  std::string texto = Lugar() + ", campo " + std::to_string(campo) + ": ";
  texto.append(motivo).append(", no \"").append(PrimerosCaracteres(Texto(campo), kMasTexto));
  throw Error(kErrorTypeMismatch, "kvraedi", texto + '"');
}

}  // namespace kvraedi
