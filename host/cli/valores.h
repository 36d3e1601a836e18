#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "host/cli/fallo.h"
#include "host/cli/numeros.h"

// Reading of the values of options; a value that is not a good one raises Fallo(kUsoErroneo).
namespace kvraedi::cli {

[[noreturn]] inline void SeEsperaba(const std::string& que, const std::string& valor) {
  throw Fallo(kUsoErroneo, "se esperaba " + que + ", no «" + valor + "»");
}

template <class T>
T EnteroEntre(const std::string& valor, T minimo, T maximo) {
  const auto numero = Entero<T>(valor);
  if (!numero || *numero < minimo || *numero > maximo) {
    SeEsperaba("un número entero de " + std::to_string(minimo) + " a " + std::to_string(maximo),
               valor);
  }
  return *numero;
}

template <class T>
T EnteroDesde(const std::string& valor, T minimo) {
  return EnteroEntre<T>(valor, minimo, std::numeric_limits<T>::max());
}

template <std::size_t N>
int Eleccion(const std::string& valor, const std::array<std::string_view, N>& opciones) {
  std::string lista;
  for (std::size_t i = 0; i < N; ++i) {
    if (valor == opciones[i]) return static_cast<int>(i);
    lista.append(i == 0 ? "" : i + 1 == N ? " o " : ", ").append(opciones[i]);
  }
  SeEsperaba(lista, valor);
}

inline std::string NoVacio(const std::string& valor) {
  if (valor.empty()) SeEsperaba("un texto", valor);
  return valor;
}

}  // namespace kvraedi::cli
