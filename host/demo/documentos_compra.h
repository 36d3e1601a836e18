#pragma once

#include "host/demo/azar.h"
#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Supplier orders 1 to 60 of company 1 and 1 to 20 of company 2, with the suppliers in turn: every
/// tenth has no lines. Order 1234 of company 1 is a plain one of store 3.
void CrearPedidosProveedores(Connection& conexion, Azar& azar);

/// Receipts of goods of company 1 in every store, and some of company 2, with up to five tax rows.
/// Receipt 157 of store 3 in 2026 is a plain one.
void CrearEntradas(Connection& conexion, Azar& azar);

}  // namespace kvraedi::demo
