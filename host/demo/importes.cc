#include "host/demo/importes.h"

#include <map>

namespace kvraedi::demo {
namespace {

constexpr std::int64_t kCien = 100 * Currency::kScale;  // 100 % in ten-thousandths
constexpr std::int64_t kCentimo = Currency::kScale / 100;

// `units` over `divisor`, to the next multiple of `step` units.
Currency Redondear(std::int64_t units, std::int64_t step, std::int64_t divisor = 1) {
  return Currency::FromUnits(Dividir(units, divisor * step) * step);
}

Currency Porcentual(Currency importe, Currency porcentaje) {
  return Redondear(importe.Units() * porcentaje.Units(), kCentimo, kCien);
}

// Percentage of the line's exact product, to four decimals. Units have three decimals, so that one
// zero less keeps the product within 64 bits.
Currency Parte(const ImportesLinea& linea, std::int64_t porcentaje) {
  const std::int64_t producto = linea.unidades.Units() / 10 * linea.precio.Units() * porcentaje;
  return Currency::FromUnits(Dividir(producto, Currency::kScale / 10 * kCien));
}

Currency ImporteDescuento(const DescuentoGeneral& descuento, Currency sobre) {
  if (descuento.tipo == 1) return descuento.valor;
  return Porcentual(sobre, descuento.valor);
}

}  // namespace

std::int64_t Dividir(std::int64_t dividendo, std::int64_t divisor) {
  const std::int64_t half = divisor / 2;
  return (dividendo + (dividendo < 0 ? -half : half)) / divisor;
}

Currency ImportesLinea::Neto() const {
  return Redondear(Parte(*this, kCien - pDescuento.Units()).Units(), Currency::kScale / 1000);
}

Currency ImportesLinea::Descuento() const { return Parte(*this, pDescuento.Units()); }

Totales Totalizar(std::span<const ImportesLinea> lineas,
                  std::span<const DescuentoGeneral> descuentos, Currency portes,
                  const Porcentaje& porcentaje) {
  std::map<std::int16_t, std::int64_t> netos;  // thousandths by tax code
  std::int64_t suma = 0;
  for (const ImportesLinea& linea : lineas) {
    const std::int64_t neto = linea.Neto().Units() / 10;
    netos[linea.impuesto] += neto;
    suma += neto;
  }
  Totales totales;
  totales.importeB = Redondear(suma * 10, kCentimo);
  Currency base = totales.importeB;
  for (const DescuentoGeneral& descuento : descuentos) {
    base = base - ImporteDescuento(descuento, base);
  }
  base = base + portes;

  Currency resto = base;
  for (const auto& [tipo, neto] : netos) {
    const bool ultimo = tipo == netos.rbegin()->first;
    const std::int64_t parte =
        suma == 0 ? 0
                  : Dividir((suma < 0 ? -1 : 1) * base.Units() / kCentimo * neto, std::abs(suma));
    Impuesto impuesto{tipo, ultimo ? resto : Currency::FromUnits(parte * kCentimo), {}};
    resto = resto - impuesto.base;
    impuesto.importe = Porcentual(impuesto.base, porcentaje(tipo));
    totales.impuestos = totales.impuestos + impuesto.importe;
    totales.porTipo.push_back(impuesto);
  }
  totales.total = base + totales.impuestos;
  return totales;
}

}  // namespace kvraedi::demo
