#include "facturae/respuesta_firma.h"

#include <optional>

#include "kvraedi/error.h"

namespace kvraedi::facturae {
namespace {

constexpr std::string_view kBlancos = " \t\r\n";

std::vector<std::string> Partir(std::string_view texto) {
  std::vector<std::string> elementos;
  if (texto.empty()) return elementos;
  for (std::size_t coma = texto.find(','); coma != std::string_view::npos; coma = texto.find(',')) {
    elementos.emplace_back(texto.substr(0, coma));
    texto.remove_prefix(coma + 1);
  }
  elementos.emplace_back(texto);
  return elementos;
}

/// A date with blanks around it or not. The empty text is no date here.
std::optional<FechaHora> LeerFecha(std::string_view texto) {
  const std::size_t inicio = texto.find_first_not_of(kBlancos);
  if (inicio == std::string_view::npos) return std::nullopt;
  return FechaHora::Parse(texto.substr(inicio, texto.find_last_not_of(kBlancos) + 1 - inicio));
}

}  // namespace

RespuestaFirma::RespuestaFirma(std::string_view texto) : texto_(texto), elementos_(Partir(texto)) {}

DatosRegistro RespuestaFirma::Registro() const {
  constexpr std::size_t kElementos = 4;
  if (elementos_.size() < kElementos) {
    throw Error(kErrorTypeMismatch, "modFactura_E", "La respuesta del firmador está incompleta");
  }
  const auto fecha = LeerFecha(elementos_[3]);
  if (!fecha) {
    throw Error(kErrorTypeMismatch, "modFactura_E",
                "La fecha de registro de la respuesta del firmador no es una fecha");
  }
  return {elementos_[1], elementos_[2], elementos_[3], *fecha};
}

}  // namespace kvraedi::facturae
