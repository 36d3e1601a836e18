#pragma once

#include <cstdint>
#include <string>

#include "host/demo/azar.h"
#include "kvraedi/valor.h"

namespace kvraedi::demo {

/// A supplier as its messages name it.
struct ProveedorMensaje {
  std::int32_t codigo = 0;
  std::string gln;
  std::string nombre;
  std::string nif;
  std::string direccion;
  std::string cp;
  std::string localidad;
};

/// An invoice of a supplier and its INVOIC file.
struct FacturaProveedor {
  std::int32_t proveedor = 0;
  std::string documento;
  Currency total;
  std::string bytes;
};

/// Invents invoice `numero` of a supplier: by its number it has discounts, texts, many lines, or is
/// a credit note.
FacturaProveedor InventarFactura(const ProveedorMensaje& proveedor, std::int32_t numero,
                                 const FechaHora& fecha, Azar& azar);

}  // namespace kvraedi::demo
