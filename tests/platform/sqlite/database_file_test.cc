#include "sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class DatabaseFileTest : public SqliteTest {
 protected:
  DatabaseFile file_;
};

TEST_F(DatabaseFileTest, AMissingFileIsAnErrorUnlessAskedFor) {
  EXPECT_NE(DescriptionOf([this] { file_.Open(); }), "");
  EXPECT_FALSE(std::filesystem::exists(file_.Path()));
  file_.Open(true)->Run("CREATE TABLE T (A int)");
  EXPECT_EQ(All(*file_.Open(), "SELECT COUNT(*) FROM T"), "0");
}

TEST_F(DatabaseFileTest, FunctionsAndCollationsAreThereAtTheNextOpening) {
  file_.Open(true)->Run(R"(
      CREATE TABLE T (Nombre varchar(20), Fecha datetime); CREATE INDEX I ON T (Nombre)
      GO
      CREATE FUNCTION dbo.f(@a int) RETURNS int AS BEGIN RETURN (@a * 2) END)");
  auto db = file_.Open();
  db->Execute("INSERT INTO T (Nombre, Fecha) VALUES ('Ñu', '5/6/2024')");
  EXPECT_EQ(All(*db, "SELECT dbo.f(21) FROM T WHERE Nombre = 'ñu' AND Fecha = '20240605'"), "42");
}

TEST_F(DatabaseFileTest, AProgramOfItsOwnCanOpenTheFile) {
  file_.Open(true)->Run(
      "CREATE TABLE T (Nombre varchar(20), Alta datetime DEFAULT GETDATE()); CREATE INDEX I ON T"
      " (Nombre)");
  sqlite3* bare = nullptr;
  ASSERT_EQ(sqlite3_open(file_.Path().c_str(), &bare), SQLITE_OK);
  RegisterDialect(bare, [] { return FechaHora{2001, 2, 3}; });
  EXPECT_EQ(
      sqlite3_exec(bare, "INSERT INTO T (Nombre) VALUES ('a'), ('B')", nullptr, nullptr, nullptr),
      SQLITE_OK)
      << sqlite3_errmsg(bare);
  sqlite3_close(bare);
  EXPECT_EQ(All(*file_.Open(), "SELECT Nombre FROM T WHERE Alta = '3/2/2001' ORDER BY 1"), "a B");
}

TEST_F(DatabaseFileTest, DurabilitySettings) {
  const struct {
    Durability durability;
    const char *journal, *synchronous;
  } cases[] = {{Durability::kFull, "delete", "2"},
               {Durability::kWal, "wal", "1"},
               {Durability::kNone, "memory", "0"},
               {Durability::kFull, "delete", "2"}};
  for (const auto& c : cases) {
    db_.reset();
    db_ = file_.Open(true, c.durability);
    EXPECT_EQ(Raw("PRAGMA journal_mode"), c.journal);
    EXPECT_EQ(Raw("PRAGMA synchronous"), c.synchronous);
  }
}

TEST_F(DatabaseFileTest, AFileInUseKeepsItsJournal) {
  const auto other = file_.Open(true, Durability::kWal);
  other->Run("CREATE TABLE T (A int)");
  db_ = file_.Open(false, Durability::kFull);
  EXPECT_EQ(Raw("PRAGMA journal_mode"), "wal");
  EXPECT_EQ(Raw("PRAGMA synchronous"), "2");
}

TEST_F(DatabaseFileTest, AClosedConnectionRaisesAndItsRecordsetsGoOn) {
  auto db = file_.Open(true);
  db->Run("CREATE TABLE T (A int); INSERT INTO T (A) VALUES (1), (2)");
  auto rows = db->Open("SELECT A FROM T");
  db->Close();
  db->Close();
  EXPECT_EQ(DescriptionOf([&] { db->Execute("DELETE FROM T"); }), "La conexión está cerrada");
  rows->MoveNext();
  EXPECT_EQ(rows->Get<int>(0), 2);
  rows.reset();
  file_.Open()->Execute("DELETE FROM T");
}

TEST_F(DatabaseFileTest, DatesLoadedWithoutTheAdapterThatAreNoneMakeStatementsFail) {
  db_->Run("CREATE TABLE T (A int, F datetime)");
  Raw("INSERT INTO T VALUES (1, '2024-01-01'), (2, 'abc'), (3, '2024-01-03')");
  EXPECT_EQ(DescriptionOf([this] { All("SELECT A FROM T WHERE A > 0 ORDER BY F"); }),
            "La conversión del texto 'abc' en fecha no es posible.");
  EXPECT_EQ(All("SELECT A FROM T WHERE A = 3"), "3");
}

TEST_F(DatabaseFileTest, TablesAreNotDroppedUnderAnOpenRecordset) {
  db_->Run("CREATE TABLE T (A int); CREATE TABLE U (A int); INSERT INTO T (A) VALUES (1), (2)");
  auto rows = db_->Open("SELECT A FROM T");
  EXPECT_NE(DescriptionOf([this] { db_->Execute("DROP TABLE U"); }), "");
  rows->MoveNext();
  EXPECT_EQ(rows->Get<int>(0), 2);
  rows->Close();
  db_->Execute("DROP TABLE U");
}

TEST_F(DatabaseFileTest, TablesChangedThroughTheHandleAreReadAnewWhenAskedFor) {
  db_->Run("CREATE TABLE T (A datetime)");
  db_->Execute("DELETE FROM T WHERE A = '20240101'");
  Raw("DROP TABLE T");
  Raw("CREATE TABLE T (A TEXT)");
  db_->ForgetSchema();
  db_->Execute("INSERT INTO T (A) VALUES ('31/02/2024')");
  EXPECT_EQ(All("SELECT A FROM T WHERE A = '31/02/2024'"), "31/02/2024");
}

}  // namespace
}  // namespace kvraedi::sqlite
