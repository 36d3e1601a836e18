#include "facturae/respuesta_firma.h"

#include <algorithm>
#include <array>

#include "facturae/fecha_registro.h"
#include "kvraedi/error.h"

namespace kvraedi::facturae {
namespace {

[[noreturn]] void Fallar(std::string texto) {
  throw Error(kErrorTypeMismatch, "modFactura_E", std::move(texto));
}

/// The text without what shows nothing at its ends: blanks, line ends, a byte order mark.
std::string_view SinBordes(std::string_view texto) {
  constexpr std::array<std::string_view, 9> kBlancos = {" ",  "\t",      "\r",     "\n",    "\v",
                                                        "\f", {"\0", 1}, "\u00A0", "\uFEFF"};
  for (bool sigue = true; sigue;) {
    sigue = false;
    for (const std::string_view blanco : kBlancos) {
      if (texto.starts_with(blanco)) {
        texto.remove_prefix(blanco.size());
        sigue = true;
      } else if (texto.ends_with(blanco)) {
        texto.remove_suffix(blanco.size());
        sigue = true;
      }
    }
  }
  return texto;
}

std::vector<std::string> Partir(std::string_view texto) {
  std::vector<std::string> elementos;
  for (std::size_t coma = texto.find(','); coma != std::string_view::npos; coma = texto.find(',')) {
    elementos.emplace_back(texto.substr(0, coma));
    texto.remove_prefix(coma + 1);
  }
  elementos.emplace_back(texto);
  return elementos;
}

}  // namespace

RespuestaFirma::RespuestaFirma(std::string_view texto)
    : texto_(SinBordes(texto)), elementos_(Partir(texto_)) {}

RespuestaFirma::RespuestaFirma(std::string_view restos, std::string_view defecto)
    : texto_(SinBordes(restos)), defecto_(defecto) {}

bool RespuestaFirma::Conforme() const {
  if (!defecto_.empty()) Fallar(defecto_);
  return SinBordes(elementos_.front()) == "OK";
}

DatosRegistro RespuestaFirma::Registro() const {
  constexpr std::size_t kElementos = 4;
  if (elementos_.size() < kElementos) Fallar("La respuesta del firmador está incompleta");
  const auto fecha = LeerFechaRegistro(SinBordes(elementos_[3]));
  if (!fecha) Fallar("La fecha de registro de la respuesta del firmador no es una fecha");
  return {elementos_[1], elementos_[2], elementos_[3], *fecha};
}

}  // namespace kvraedi::facturae
