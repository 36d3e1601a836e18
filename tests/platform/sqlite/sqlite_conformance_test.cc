#include "platform/sqlite/sqlite_connection.h"
#include "tests/platform/conexion/connection_conformance.h"

namespace kvraedi::conformance {
namespace {

const Adapter kSqlite = {"SQLite", [] {
                           SqliteOptions options;
                           options.create = true;
                           options.clock = [] { return FechaHora{2024, 6, 5, 7, 8, 9}; };
                           return std::make_unique<SqliteConnection>(":memory:", options);
                         }};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionConformance, testing::Values(kSqlite));
INSTANTIATE_TEST_SUITE_P(Sqlite, DatabasePromises,
                         testing::Combine(testing::Values(kSqlite), testing::ValuesIn(Promises())),
                         NameOfPromise);
INSTANTIATE_TEST_SUITE_P(
    Embedded, DatabasePromises,
    testing::Combine(testing::Values(kSqlite),
                     testing::ValuesIn(Promises("platform/sqlite/embebida.sql"))),
    NameOfPromise);

}  // namespace kvraedi::conformance
