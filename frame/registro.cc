#include "frame/registro.h"

#include "kvraedi/error.h"

namespace kvraedi {

std::span<char> Registro::Sitio(const Campo& campo) {
  return std::span(linea_).subspan(campo.posicion - 1, campo.ancho);
}

void Registro::Texto(const Campo& campo, std::string_view texto) {
  FormatearCampo(campo.alineacion, texto, Sitio(campo));
}

void Registro::Numero(const Campo& campo, std::string_view texto) {
  if (FormatearCampo(campo.alineacion, texto, Sitio(campo))) return;
  throw Error(kErrorOverflow, "kvraedi",
              "El valor " + std::string(texto) + " no cabe en el campo " +
                  std::string(campo.nombre) + " (" + std::to_string(campo.ancho) + " caracteres)");
}

}  // namespace kvraedi
