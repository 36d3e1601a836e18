#pragma once

#include <cstdint>

namespace kvraedi::cli {

/// The supplier order or the receipt of goods that the command line names.
struct DatosCompra {
  std::int32_t pedido = 0;
  std::int16_t ejercicio = 0;
  std::int16_t almacen = 0;
  std::int32_t entrada = 0;
};

}  // namespace kvraedi::cli
