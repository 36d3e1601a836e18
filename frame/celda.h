#pragma once

#include <string>
#include <utility>

#include "frame/formato.h"
#include "kvraedi/error.h"

namespace kvraedi {

/// The text of a value in a list, "" for a null; one that is beyond its type says so in its cell,
/// so that it does not keep the other rows from being listed. `fila` is a recordset or a `Fila`.
template <class T, class Filas, class Columna, class Texto>
std::string Celda(const Filas& fila, Columna columna, Texto&& texto) {
  if (fila.IsNull(columna)) return {};
  try {
    return std::forward<Texto>(texto)(fila.template Get<T>(columna));
  } catch (const Error& error) {
    if (error.Number() != kErrorOverflow && error.Number() != kErrorTypeMismatch) throw;
    return "no válido";
  }
}

template <class Filas, class Columna>
std::string CeldaFecha(const Filas& fila, Columna columna) {
  return Celda<FechaHora>(fila, columna, FechaTexto);
}

template <class Filas, class Columna>
std::string CeldaImporte(const Filas& fila, Columna columna) {
  return Celda<Currency>(fila, columna, [](Currency importe) { return NumeroTexto(importe, 2); });
}

}  // namespace kvraedi
