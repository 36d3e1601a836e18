#pragma once

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "kvraedi/error.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// a * b / divisor, exact, taken to four decimals half away from zero. The divisor is not zero.
Currency ReglaDeTres(Currency a, Currency b, Currency divisor);

/// a percentage of an amount, exact, taken to so many decimals (0 to 4) half away from zero: four
/// for what is money afterwards, those of its form for what is only written.
Currency Porcentaje(Currency importe, Currency porcentaje, int decimales);

/// The suite's rounding: to `decimales` (0 to 4) decimals, halves away from zero.
Currency Redondear(Currency valor, int decimales);

/// The runtime's own rounding of a floating-point number: halves go to the even neighbour.
double RedondearAlPar(double valor, int decimales);

/// price * units - (price * units * discount percentage) / 100, computed exactly, then taken to
/// four decimals half away from zero.
Currency ImporteConDescuento(Currency precio, Currency unidades, Currency porcentaje);

/// A whole number of narrower type; raises "Desbordamiento" when it does not fit.
template <class To, class From>
To Estrechar(From valor) {
  if (valor < std::numeric_limits<To>::min() || valor > std::numeric_limits<To>::max()) {
    ThrowOverflow();
  }
  return static_cast<To>(valor);
}

/// A number of a received file: digits with a sign before them and a point or a comma among them,
/// blanks around; all blank is 0. Nothing when the text is anything else or does not fit.
std::optional<Currency> NumeroRecibido(std::string_view texto);

/// Whether it is digits with a sign before them and a point or a comma among them, however large
/// the number is; a blank text is none.
bool TieneFormaDeNumero(std::string_view texto);

/// Reads a whole number; raises "No coinciden los tipos" or "Desbordamiento".
template <class T>
T Entero(std::string_view texto) {
  T valor{};
  const char* const end = texto.data() + texto.size();
  const auto [last, error] = std::from_chars(texto.data(), end, valor);
  if (error == std::errc::result_out_of_range) ThrowOverflow();
  if (error != std::errc{} || last != end) ThrowTypeMismatch();
  return valor;
}

/// The same, where an empty text is 0.
template <class T>
T EnteroOCero(std::string_view texto) {
  return texto.empty() ? T{} : Entero<T>(texto);
}

}  // namespace kvraedi
