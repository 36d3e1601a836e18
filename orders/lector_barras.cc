#include "orders/lector_barras.h"

#include <algorithm>
#include <utility>

#include "frame/codigo1252.h"
#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/recortar.h"
#include "kvraedi/error.h"

namespace kvraedi {

std::optional<FechaHora> DiaUsable(std::string_view texto) {
  constexpr FechaHora kPrimero{1900, 1, 1};
  constexpr FechaHora kUltimo{2079, 6, 6};
  auto dia = Recortar(texto).empty() ? std::nullopt : FechaHora::Parse(texto);
  if (!dia) return std::nullopt;
  dia->hour = dia->minute = dia->second = 0;
  return *dia < kPrimero || *dia > kUltimo ? std::nullopt : dia;
}

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

std::string_view LectorBarras::TextoLimpio(std::size_t campo) const {
  const std::string_view texto = Texto(campo);
  const auto control = [](char letra) { return letra >= 0 && letra < ' ' && letra != '\t'; };
  if (std::any_of(texto.begin(), texto.end(), control)) {
    Rechazar(campo, "se esperaba un texto sin caracteres de control");
  }
  return texto;
}

std::string_view LectorBarras::Gln(std::size_t campo) const {
  if (Recortar(Texto(campo)).empty()) Rechazar(campo, "se esperaba un GLN");
  return TextoLimpio(campo);
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

std::string LectorBarras::Cifras(std::size_t campo) const {
  constexpr std::ptrdiff_t kMasCifras = 38;
  std::string numero(Recortar(Texto(campo)));
  if (numero.empty()) return "0";
  if (!TieneFormaDeNumero(numero)) Rechazar(campo, "se esperaba un número");
  std::replace(numero.begin(), numero.end(), ',', '.');
  const auto cifras = std::count_if(numero.begin(), numero.end(),
                                    [](char letra) { return letra >= '0' && letra <= '9'; });
  if (cifras > kMasCifras) {
    Rechazar(campo,
             "se esperaba un número de " + std::to_string(kMasCifras) + " cifras como máximo");
  }
  return numero;
}

void LectorBarras::Rechazar(std::size_t campo, std::string_view motivo) const {
  constexpr std::size_t kMasTexto = 60;
  std::string texto = Lugar() + ", campo " + std::to_string(campo) + ": ";
  texto.append(motivo).append(", no \"").append(PrimerosCaracteres(Texto(campo), kMasTexto));
  throw Error(kErrorTypeMismatch, "kvraedi", texto + '"');
}

}  // namespace kvraedi
