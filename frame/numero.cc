#include "frame/numero.h"

#include <cmath>

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
