#include "platform/odbc/odbc_connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>

#include "platform/odbc/connection_secrets.h"
#include "platform/odbc/row_update.h"
#include "tests/platform/odbc/servidor_tds.h"

namespace kvraedi::odbc {
namespace {

std::string DescriptionOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    EXPECT_EQ(error.Source(), "ODBC");
    return error.Description();
  }
  return "";
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// A table on the stand-in server; faults are asked of it by the test.
class OdbcServer : public testing::Test {
 protected:
  OdbcConnection& Start(const std::vector<std::string>& options = {}) {
    server_.emplace(options);
    db_.emplace(server_->Cadena());
    db_->Execute(
        "CREATE TABLE Notas (ID [int] IDENTITY(1,1), Serie [int], Datos [varbinary](MAX))");
    for (const char* serie : {"1", "2", "3"}) {
      db_->Execute("INSERT INTO Notas (Serie) VALUES (" + std::string(serie) + ")");
    }
    return *db_;
  }

  std::optional<ServidorTds> server_;
  std::optional<OdbcConnection> db_;
};

TEST_F(OdbcServer, AnErrorHoldsAllThatTheDriverSaysButNoSecret) {
  OdbcConnection& db =
      Start({"--fault", "DELETE=>547,16,La clave ajena, con UID=prueba;PWD=Secreta-77 dentro"});
  const std::string text = DescriptionOf([&] { db.Execute("DELETE FROM Notas"); });
  EXPECT_TRUE(Contains(text, "La clave ajena, con UID=***;PWD=*** dentro (23000, 547)")) << text;
  EXPECT_EQ(db.Execute("UPDATE Notas SET Serie = Serie"), 3);
}

TEST_F(OdbcServer, WhatTroublesTheServerIsToldInSpanish) {
  OdbcConnection& db =
      Start({"--fault", "Serie = 8=>1222,16,Lock request time out period exceeded.", "--fault",
             "Serie = 9=>1205,13,deadlock victim"});
  EXPECT_TRUE(
      Contains(DescriptionOf([&] { db.Open("SELECT * FROM Notas WHERE Serie = 8"); }),
               "Otro usuario tiene bloqueados los datos y ha terminado la espera (30000 ms)"));
  EXPECT_TRUE(Contains(DescriptionOf([&] { db.Open("SELECT * FROM Notas WHERE Serie = 9"); }),
                       "chocaba con la de otro usuario"));
}

TEST_F(OdbcServer, ALostConnectionIsToldAtOnceAndEveryTime) {
  OdbcConnection& db = Start({"--drop", "Serie = 13"});
  db.BeginTrans();
  const auto lost = [](const std::string& text) {
    return Contains(text, "Se ha perdido la conexión con la base de datos.");
  };
  EXPECT_TRUE(lost(DescriptionOf([&] { db.Execute("UPDATE Notas SET Serie = 13"); })));
  EXPECT_TRUE(lost(DescriptionOf([&] { db.Open("SELECT 1"); })));
  EXPECT_TRUE(lost(DescriptionOf([&] { db.CommitTrans(); })));
  EXPECT_TRUE(lost(DescriptionOf([&] { db.RollbackTrans(); })));
  EXPECT_TRUE(lost(DescriptionOf([&] { db.BeginTrans(); })));
}

TEST_F(OdbcServer, ATransactionThatTheServerEndedTakesNothingMore) {
  OdbcConnection& db = Start({"--fault", "Serie = 9=>1205,13,deadlock victim"});
  db.BeginTrans();
  db.Execute("INSERT INTO Notas (Serie) VALUES (4)");
  EXPECT_NE(DescriptionOf([&] { db.Execute("DELETE FROM Notas WHERE Serie = 9"); }), "");
  for (const auto& call : std::vector<std::function<void()>>{
           [&] { db.Execute("INSERT INTO Notas (Serie) VALUES (5)"); },
           [&] { db.Open("SELECT 1"); }, [&] { db.CommitTrans(); }}) {
    EXPECT_TRUE(Contains(DescriptionOf(call), "ha deshecho por sí mismo la transacción"));
  }
  db.RollbackTrans();
  EXPECT_EQ(db.Execute("UPDATE Notas SET Serie = Serie"), 3);
}

TEST_F(OdbcServer, WhatStandsBehindTheFirstResultCounts) {
  OdbcConnection& db = Start({"--fault", "Serie = 66=>547,16,detrás"});
  EXPECT_EQ(db.Execute("UPDATE Notas SET Serie = 5; UPDATE Notas SET Serie = 6 WHERE ID = 1"), 1);
  EXPECT_EQ(db.Open("SELECT 1 AS a; SELECT 2 AS b")->Get<int>("a"), 1);
  for (const char* first : {"SELECT 1 AS a", "UPDATE Notas SET Serie = 7"}) {
    const std::string sql = std::string(first) + "; DELETE FROM Notas WHERE Serie = 66";
    EXPECT_TRUE(Contains(DescriptionOf([&] { db.Execute(sql); }), "detrás")) << first;
  }
  EXPECT_TRUE(Contains(DescriptionOf([&] { db.Open("SELECT 1; SELECT Serie = 66"); }), "detrás"));
  EXPECT_EQ(db.Execute("DELETE FROM Notas WHERE ID = 99"), 0);
}

TEST_F(OdbcServer, LongBinariesTravelInPieces) {
  OdbcConnection& db = Start();
  Bytes bytes(std::size_t{3} * 1024 * 1024 + 7);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(i * 7 / 3);
  const auto others = db.Open("SELECT ID, Datos FROM Notas");
  db.UpdateBlob("SELECT Datos FROM Notas WHERE Serie = 2", "datos", bytes);
  db.UpdateBlob("SELECT Datos FROM Notas WHERE Serie = 3", "datos", {});
  for (const bool ahead : {false, true}) {
    auto rows = db.Open("SELECT Serie, Datos, ID FROM Notas WHERE Serie >= 2");
    if (ahead) db.Execute("UPDATE Notas SET Serie = Serie");
    EXPECT_EQ(rows->Get<int>("ID"), 2);
    EXPECT_EQ(rows->Get<Bytes>("Datos"), bytes);
    EXPECT_EQ(rows->Get<Bytes>("Datos"), bytes);
    rows->MoveNext();
    EXPECT_FALSE(rows->IsNull("Datos"));
    EXPECT_EQ(rows->Get<Bytes>("Datos"), Bytes{});
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
  }
  EXPECT_TRUE(others->IsNull("Datos"));
}

TEST_F(OdbcServer, EveryCharacterGoesThereAndBack) {
  OdbcConnection& db = Start();
  for (const std::string text :
       {"ñÑçÇ€", "\U0001F600 \U00010348", "{fn now()} ? a", "\r\n\t", ""}) {
    EXPECT_EQ(db.Open("SELECT '" + text + "' AS Texto")->Get<std::string>("texto"), text);
  }
  EXPECT_EQ(db.Open("SELECT 'a\xFF\xC3' AS Texto")->Get<std::string>(0), "a\uFFFD\uFFFD");
}

TEST_F(OdbcServer, StatementsAreNotPreparedAndNoSecretTravelsInThem) {
  Start();
  const std::string log = server_->Registro();
  EXPECT_TRUE(Contains(log, "SET DATEFORMAT dmy"));
  EXPECT_FALSE(Contains(log, "\"rpc\"")) << log;
  EXPECT_FALSE(Contains(log, "Secreta-77"));
}

TEST(OdbcOpening, AServerThatDoesNotFitIsRefused) {
  const struct {
    std::vector<std::string> options;
    const char* refusal;
  } cases[] = {
      {{"--fault", "02/01/2000=>241,16,Conversion failed"}, "Conversion failed"},
      {{"--fault", "Temporal = Propio=>468,16,collation conflict"}, "La intercalación de tempdb"},
      {{"--fault", "LOCK_TIMEOUT=>102,15,no se conoce"}, "no se conoce"},
  };
  for (const auto& c : cases) {
    const ServidorTds server(c.options);
    const std::string text = DescriptionOf([&] { OdbcConnection db(server.Cadena()); });
    EXPECT_TRUE(Contains(text, c.refusal)) << text;
  }
  ServidorTds server;
  const std::string wrong = server.Cadena() + "x";
  EXPECT_TRUE(Contains(DescriptionOf([&] { OdbcConnection db(wrong); }), "No se puede abrir"));
  server.Parar();
  EXPECT_TRUE(Contains(DescriptionOf([&] { OdbcConnection db(wrong); }), "No se puede abrir"));
}

class OdbcSqlite : public testing::Test {
 protected:
  OdbcSqlite() : db_("Driver={SQLite3};Database=:memory:", {.transact_sql = false}) {}

  OdbcConnection db_;
};

TEST_F(OdbcSqlite, RowsThatAreReadAheadStayInOrderInMemoryAndInAFile) {
  db_.Execute("CREATE TABLE Filas (ID integer, Texto varchar(2000), Largo longvarchar)");
  for (const char* count : {"300", "6000"}) {
    db_.Execute("DELETE FROM Filas");
    db_.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                std::string(count) +
                ") INSERT INTO Filas SELECT i, CASE i % 3 WHEN 0 THEN NULL WHEN 1 THEN '' ELSE"
                " printf('%.*c', 900, 'x') END, CASE i WHEN 2 THEN printf('%.*c', 200000, 'y')"
                " END FROM n");
    auto rows = db_.Open("SELECT ID, Texto, Largo FROM Filas ORDER BY ID");
    int read = 0;
    for (; !rows->Eof(); rows->MoveNext()) {
      const int id = rows->Get<int>("ID");
      ASSERT_EQ(id, ++read);
      ASSERT_EQ(rows->IsNull("Texto"), id % 3 == 0);
      ASSERT_EQ(rows->GetOrEmpty<std::string>("Texto").size(), id % 3 == 2 ? 900U : 0U);
      ASSERT_EQ(rows->GetOrEmpty<std::string>("Largo").size(), id == 2 ? 200000U : 0U);
      if (id == 1) db_.Execute("DELETE FROM Filas WHERE ID > 100");
    }
    EXPECT_EQ(std::to_string(read), count);
  }
}

TEST(OdbcSecrets, UserAndPasswordAreHiddenWhereverTheyStand) {
  const struct {
    const char* connection;
    const char* text;
    const char* shown;
  } cases[] = {
      {"UID=sa;PWD=clave", "Login failed for user 'sa', mesa", "Login failed for user '***', mesa"},
      {"pwd={a;b}}c};x=1", "pwd={a;b}}c};x=1 / a;b}c", "pwd=***;x=1 / ***"},
      {"PWD=abc", "abc, abcd", "***, abcd"},
      {"Password = 1;Password=abcd", "xabcdx", "x***x"},
      {"User=pepe", "User=otro;Server=pepe", "User=***;Server=***"},
      {"Server=x", "UID=", "UID=***"},
      {"", "nada", "nada"},
  };
  for (const auto& c : cases) EXPECT_EQ(ConnectionSecrets(c.connection).Hide(c.text), c.shown);
}

TEST(OdbcRowUpdate, IsTheFirstRowOfTheSelect) {
  EXPECT_EQ(FirstRowUpdate("SELECT stream FROM EDI_Anexos  WHERE N ='ORDER'", "Stream", "?"),
            "UPDATE TOP (1) EDI_Anexos SET [Stream] = ?  WHERE N ='ORDER'");
  EXPECT_EQ(
      FirstRowUpdate("select [a], b from dbo.T WHERE x IN (SELECT y FROM z ORDER BY y)", "B", "0x"),
      "UPDATE TOP (1) dbo.T SET [B] = 0x WHERE x IN (SELECT y FROM z ORDER BY y)");
  EXPECT_EQ(FirstRowUpdate("SELECT * FROM T ORDER BY a DESC", "b", "?"),
            "WITH fila AS (SELECT TOP (1) * FROM T ORDER BY a DESC) UPDATE fila SET [b] = ?");
}

}  // namespace
}  // namespace kvraedi::odbc
