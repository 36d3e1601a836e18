#pragma once

#include <cstdint>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Suppliers 1 to 12 with their GLN codes, the bar codes and suppliers' references of the articles,
/// the articles that stand for a tax type, more stores of company 1, orders to suppliers and
/// receipts. Needs the companies and the articles.
void CrearCompras(Connection& conexion, std::uint64_t semilla);

}  // namespace kvraedi::demo
