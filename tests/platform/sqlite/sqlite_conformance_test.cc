#include "platform/sqlite/sqlite_connection.h"
#include "tests/platform/conexion/connection_conformance.h"

namespace kvraedi::conformance {

INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionConformance,
                         testing::Values(Adapter{
                             "SQLite", [] {
                               SqliteOptions options;
                               options.create = true;
                               options.clock = [] { return FechaHora{2024, 6, 5, 7, 8, 9}; };
                               return std::make_unique<SqliteConnection>(":memory:", options);
                             }}));

}  // namespace kvraedi::conformance
