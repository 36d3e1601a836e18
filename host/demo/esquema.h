#pragma once

#include <string_view>

namespace kvraedi::demo {

/// The T-SQL scripts of this folder, as they were when the program was built: the tables of sales,
/// of orders and logistics and of received invoices, then the functions and triggers.
extern const std::string_view kEsquema;
extern const std::string_view kEsquemaPedidos;
extern const std::string_view kEsquemaRecepcion;
extern const std::string_view kFunciones;

}  // namespace kvraedi::demo
