#include "frame/numero.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kvraedi {
namespace {

__extension__ using Entero128 = __int128;

constexpr std::int64_t kPorCiento = 100;

Entero128 Multiplicar(Entero128 a, Entero128 b) {
  Entero128 resultado = 0;
  if (__builtin_mul_overflow(a, b, &resultado)) ThrowOverflow();
  return resultado;
}

/// valor / divisor, half away from zero.
Entero128 Dividir(Entero128 valor, Entero128 divisor) {
  if (divisor < 0) return Dividir(-valor, -divisor);
  const Entero128 cociente = valor / divisor;
  const Entero128 resto = valor % divisor;
  if ((resto < 0 ? -resto : resto) * 2 < divisor) return cociente;
  return cociente + (valor < 0 ? -1 : 1);
}

Currency DesdeUnidades(Entero128 unidades) {
  return Currency::FromUnits(Estrechar<std::int64_t>(unidades));
}

}  // namespace

std::optional<Currency> NumeroRecibido(std::string_view texto) {
  const auto primero = texto.find_first_not_of(' ');
  if (primero == std::string_view::npos) return Currency();
  std::string numero(texto.substr(primero, texto.find_last_not_of(' ') - primero + 1));
  std::replace(numero.begin(), numero.end(), ',', '.');
  if (numero.find_first_not_of("+-.0123456789") != std::string::npos) return std::nullopt;
  try {
    return Currency::Parse(numero);
  } catch (const Error&) {
    return std::nullopt;
  }
}

Currency Producto(Currency a, Currency b) {
  return DesdeUnidades(Dividir(Multiplicar(a.Units(), b.Units()), Currency::kScale));
}

Currency ReglaDeTres(Currency a, Currency b, Currency divisor) {
  return DesdeUnidades(Dividir(Multiplicar(a.Units(), b.Units()), divisor.Units()));
}

Currency Porcentaje(Currency importe, Currency porcentaje) {
  return ReglaDeTres(importe, porcentaje, Currency::FromInteger(kPorCiento));
}

double RedondearAlPar(double valor, int decimales) {
  const double escala = std::pow(10.0, decimales);
  return std::nearbyint(valor * escala) / escala;
}

Currency Redondear(Currency valor, int decimales) {
  std::int64_t paso = 1;
  for (int i = decimales; i < 4; ++i) paso *= 10;
  return DesdeUnidades(Multiplicar(Dividir(valor.Units(), paso), paso));
}

Currency ImporteConDescuento(Currency precio, Currency unidades, Currency porcentaje) {
  const Entero128 bruto = Multiplicar(precio.Units(), unidades.Units());
  const Entero128 cien = Multiplicar(kPorCiento, Currency::kScale);
  const Entero128 neto = Multiplicar(bruto, cien - porcentaje.Units());
  return DesdeUnidades(Dividir(neto, Multiplicar(cien, Currency::kScale)));
}

}  // namespace kvraedi
