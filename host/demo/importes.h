#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "kvraedi/valor.h"

namespace kvraedi::demo {

/// Amounts of an article line. Numbers are ten-thousandths, as in Currency; the exact product of
/// the three fits 64 bits while unidades <= 1,000, precio <= 500 and the discount <= 100.
struct ImportesLinea {
  Currency unidades;  ///< three decimals at most
  Currency precioG;
  Currency precio;
  Currency pDescuento;  ///< percentage
  std::int16_t impuesto = 0;

  /// Net amount: exact product, taken to four decimals and then to three, halves away from zero.
  Currency Neto() const;
  /// Discount amount to four decimals.
  Currency Descuento() const;
};

/// A general discount of an invoice: a percentage (tipo 0) or an amount (tipo 1).
struct DescuentoGeneral {
  Currency valor;
  std::int16_t tipo = 0;
};

struct Impuesto {
  std::int16_t tipo = 0;
  Currency base;
  Currency importe;
};

struct Totales {
  Currency importeB;  ///< sum of the net lines, to the cent
  Currency impuestos;
  Currency total;
  std::vector<Impuesto> porTipo;  ///< in order of tax code; the bases add up to total - impuestos
};

/// Rate in percent of a tax code.
using Porcentaje = std::function<Currency(std::int16_t tipo)>;

/// Totals of an invoice: general discounts one after the other, then carriage, then a base for each
/// tax code in proportion to its lines.
Totales Totalizar(std::span<const ImportesLinea> lineas,
                  std::span<const DescuentoGeneral> descuentos, Currency portes,
                  const Porcentaje& porcentaje);

/// The quotient, halves away from zero. `divisor` is positive.
std::int64_t Dividir(std::int64_t dividendo, std::int64_t divisor);

}  // namespace kvraedi::demo
