#pragma once

#include <array>
#include <string_view>

namespace kvraedi::demo {

/// The scripts of this folder, as they were when the program was built: the tables of sales, of
/// orders and logistics, of received invoices and of received files, then the functions. T-SQL for
/// every database.
extern const std::string_view kEsquema;
extern const std::string_view kEsquemaPedidos;
extern const std::string_view kEsquemaRecepcion;
extern const std::string_view kLibroRecibidos;
extern const std::string_view kFunciones;
/// Triggers, in the words of one database.
extern const std::string_view kDisparadoresSqlite;
extern const std::string_view kDisparadoresSqlServer;

/// What makes a database, in the order in which it is run.
extern const std::array<std::string_view, 6> kScriptsSqlite;
extern const std::array<std::string_view, 6> kScriptsSqlServer;

}  // namespace kvraedi::demo
