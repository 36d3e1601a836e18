#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "orders/lector_barras.h"

namespace kvraedi {

/// Whether a first line is that of an ORDERS message.
bool EsInicioOrders(std::string_view linea);

/// Whether an order of that number is staged.
bool PedidoRecibido(Connection& conexion, std::string_view numero);

/// Copies the records of an ORDERS message into EDI_PedidosClientes and EDI_PedidosClientes_Lineas,
/// one statement a record, in the transaction that is open. `fichero` is the file's name. Raises
/// the error of the first record that cannot be taken in; it tells file, line and field. Gives back
/// the number of orders.
std::int32_t LeerPedidos(LectorBarras& lector, const std::string& fichero, Connection& conexion,
                         Entorno& entorno);

}  // namespace kvraedi
