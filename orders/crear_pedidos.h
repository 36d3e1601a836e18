#pragma once

#include <filesystem>

namespace kvraedi {

/// Second pass over received orders: makes a customer order of the suite of each staged one and
/// takes it out of the staging tables, all in one transaction. Nothing is made while an order has
/// no lines or a line no order; that is told in the log of `carpeta` only. Raises the first error:
/// nothing of the run is kept.
void CrearPedidosClientes(const std::filesystem::path& carpeta);

}  // namespace kvraedi
