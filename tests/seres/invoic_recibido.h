#pragma once

#include <string>

#include "tests/apoyo/registro_esperado.h"

namespace kvraedi {

// The records of a received invoice, in code page 1252.

inline std::string Rectl() { return Esperado(134, "1 RECTL|7 INVOIC"); }

inline std::string Sincc() {
  return Esperado(
      370,
      "1 SINCC|7 380|13 F-77'1|30 9|36 99260314|-191 1234.565|-209 1200.00|-245 84|-263 1284.004");
}

inline std::string Sincl(std::string_view articulo, std::string_view unidades = "4.000",
                         std::string_view importe = "-100.005") {
  return Esperado(523, "1 SINCL|13 " + std::string(articulo) + "|28 Jam\xF3n D'Or|-154 " +
                           std::string(unidades) + "|-226 " + std::string(importe) +
                           "|-242 25.1234|-258 30.5");
}

inline std::string Since(std::string_view numero = " 1", std::string_view indicador = "A") {
  return Esperado(149, "1 SINCE|7 " + std::string(numero) + "|9 " + std::string(indicador) +
                           "|-21 5.2500|-39 1.5|74 TD");
}

/// Lines ended by CR LF.
inline std::string Fichero(std::initializer_list<std::string> registros) {
  std::string bytes;
  for (const std::string& registro : registros) bytes += registro + "\r\n";
  return bytes;
}

}  // namespace kvraedi
