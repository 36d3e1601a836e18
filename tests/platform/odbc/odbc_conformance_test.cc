#include <unistd.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/odbc/odbc_connection.h"
#include "tests/platform/conexion/connection_conformance.h"
#include "tests/platform/odbc/servidor_tds.h"

namespace kvraedi::conformance {
namespace {

using Faltas = std::map<std::string, std::string>;

Faltas Por(const std::string& motivo, const std::vector<std::string>& pruebas) {
  Faltas faltas;
  for (const std::string& prueba : pruebas) faltas[prueba] = motivo;
  return faltas;
}

/// SQLite takes the definitions of the tests but for these words.
class SobreSqlite : public ConnectionWrapper {
 public:
  SobreSqlite() : ConnectionWrapper(Abrir()) {}

  std::int64_t Execute(std::string_view sql) override {
    std::string texto(sql);
    for (const auto& [palabra, otra] :
         {std::pair<std::string, const char*>{"[int] IDENTITY(1,1)",
                                              "INTEGER PRIMARY KEY AUTOINCREMENT"},
          {"(MAX)", ""}}) {
      const auto lugar = texto.find(palabra);
      if (lugar != std::string::npos) texto.replace(lugar, palabra.size(), otra);
    }
    return Target().Execute(texto);
  }

 private:
  static std::shared_ptr<Connection> Abrir() {
    OdbcOptions opciones;
    opciones.transact_sql = false;
    return std::make_shared<OdbcConnection>("Driver={SQLite3};Database=:memory:", opciones);
  }
};

Adapter Sqlite() {
  return {"ODBC/SQLite", [] { return std::make_unique<SobreSqlite>(); },
          Por("SQLite keeps no dates, compares texts byte by byte and lacks these words of T-SQL",
              {"AnEmptyBlobEqualsAnEmptyText", "BlobsGoIntoTheFirstRow", "BlobsNeedARowAndAField",
               "DatesAreOrderedAndReadAsDates", "IntegersAreChecked", "TextsKeepEveryCharacter",
               "TheClockIsThePorts"})};
}

/// A connection and the stand-in server that it needs.
class ConServidor : public ConnectionWrapper {
 public:
  explicit ConServidor(std::unique_ptr<odbc::ServidorTds> servidor)
      : ConnectionWrapper(std::make_shared<OdbcConnection>(servidor->Cadena())),
        servidor_(std::move(servidor)) {}

 private:
  std::unique_ptr<odbc::ServidorTds> servidor_;
};

/// A connection to a server that was named, in a database of its own, which goes with it.
class EnBaseNueva : public ConnectionWrapper {
 public:
  explicit EnBaseNueva(const char* cadena)
      : ConnectionWrapper(std::make_shared<OdbcConnection>(cadena)),
        base_("kvraedi_prueba_" + std::to_string(getpid())) {
    Target().Execute("CREATE DATABASE " + base_);
    Target().Execute("USE " + base_);
  }
  void BeginTrans() override {
    ConnectionWrapper::BeginTrans();
    abierta_ = true;
  }
  void CommitTrans() override {
    ConnectionWrapper::CommitTrans();
    abierta_ = false;
  }
  void RollbackTrans() override {
    ConnectionWrapper::RollbackTrans();
    abierta_ = false;
  }
  ~EnBaseNueva() override {
    try {
      if (abierta_) Target().RollbackTrans();
      Target().Execute("USE master");
      Target().Execute("DROP DATABASE " + base_);
    } catch (const Error& error) {
      ADD_FAILURE() << base_ << " stays on the server: " << error.Description();
    }
  }

 private:
  std::string base_;
  bool abierta_ = false;
};

Adapter FreeTds() {
  return {"ODBC/FreeTDS",
          [] { return std::make_unique<ConServidor>(std::make_unique<odbc::ServidorTds>()); },
          Por("the stand-in server runs on SQLite, with its dates and a clock of its own",
              {"AnEmptyBlobEqualsAnEmptyText", "BlobsGoIntoTheFirstRow",
               "DatesAreOrderedAndReadAsDates", "TheClockIsThePorts"})};
}

const char* const kServidor = std::getenv("KVRAEDI_PRUEBA_ODBC");

std::vector<Adapter> ServidorNombrado() {
  if (kServidor == nullptr) return {};
  return {{"ODBC/KVRAEDI_PRUEBA_ODBC", [] { return std::make_unique<EnBaseNueva>(kServidor); },
           Por("the clock of a server is its own", {"TheClockIsThePorts"})}};
}

TEST(OdbcConformance, RunsOnTheServerThatIsNamed) {
  if (kServidor == nullptr) GTEST_SKIP() << "KVRAEDI_PRUEBA_ODBC names no server";
  EXPECT_EQ(EnBaseNueva(kServidor).Open("SELECT 1 AS Uno")->Get<int>("uno"), 1);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Servidor, ConnectionConformance, testing::ValuesIn(ServidorNombrado()));
// The stand-in and SQLite behind ODBC are not what the component runs on.
INSTANTIATE_TEST_SUITE_P(Servidor, DatabasePromises,
                         testing::Combine(testing::ValuesIn(ServidorNombrado()),
                                          testing::ValuesIn(Promises())),
                         NameOfPromise);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DatabasePromises);
INSTANTIATE_TEST_SUITE_P(FreeTds, ConnectionConformance, testing::Values(FreeTds()));
INSTANTIATE_TEST_SUITE_P(Sqlite, ConnectionConformance, testing::Values(Sqlite()));

}  // namespace kvraedi::conformance
