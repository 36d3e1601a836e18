#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "host/demo/maestros.h"
#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Called after every document with the number of documents made so far.
using Avance = std::function<void(std::int32_t hechos)>;

/// Makes `n` invoices with their lines, taxes, due dates, sendings and attachments.
void CrearFacturas(Connection& conexion, Azar& azar, const std::vector<Cliente>& clientes,
                   std::int32_t n, const Avance& avance);

/// Makes `n` invoices from tickets of the stores' tills.
void CrearTickets(Connection& conexion, Azar& azar, const std::vector<Cliente>& clientes,
                  std::int32_t n, const Avance& avance);

}  // namespace kvraedi::demo
