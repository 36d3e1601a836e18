#include "tests/platform/sqlite/sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class ExpressionsTest : public SqliteTest {
 protected:
  ExpressionsTest() {
    db_->Run(R"(
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money);
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5);
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12);
)");
  }
};

TEST_F(ExpressionsTest, AValueThatSqliteRefusesIsAnError) {
  const std::string update = "UPDATE T SET Nombre = '";
  db_->Execute(update + "corto'");
  const int limit = sqlite3_limit(db_->Handle(), SQLITE_LIMIT_LENGTH, 1000);
  EXPECT_NE(DescriptionOf([&] { db_->Execute(update + std::string(2000, 'x') + "'"); }), "");
  db_->Run("CREATE TABLE B (ID int, Datos varbinary(MAX)); INSERT INTO B VALUES (1, NULL)");
  const std::vector<std::byte> bytes(2000);
  EXPECT_NE(DescriptionOf([&] { db_->UpdateBlob("SELECT Datos FROM B", "Datos", bytes); }), "");
  sqlite3_limit(db_->Handle(), SQLITE_LIMIT_LENGTH, limit);
  EXPECT_EQ(All("SELECT Nombre FROM T"), "corto corto");
}

TEST_F(ExpressionsTest, AFailedStatementIsUndoneAloneInATransaction) {
  db_->Run("CREATE UNIQUE INDEX IX ON T (ID)");
  db_->BeginTrans();
  db_->Execute("INSERT INTO T (ID) VALUES (3)");
  for (const char* sql : {"INSERT INTO T (ID) VALUES (4), (5), (3)", "UPDATE T SET ID = ID + 1",
                          "ALTER TABLE T ADD Nueva int, Nombre int", "DROP TABLE T, NoEsta"}) {
    EXPECT_NE(DescriptionOf([&] { db_->Execute(sql); }), "") << sql;
  }
  db_->CommitTrans();
  EXPECT_EQ(All("SELECT ID FROM T ORDER BY ID"), "1 2 3");
  EXPECT_NE(DescriptionOf([&] { db_->Open("SELECT Nueva FROM T"); }), "");
}

TEST_F(ExpressionsTest, TemporaryTablesAreOfTheirConnection) {
  const DatabaseFile file;
  const auto one = file.Open(true);
  const auto other = file.Open();
  one->Execute("CREATE TABLE #t (A varchar(9))");
  other->Execute("CREATE TABLE #t (A int)");
  one->Execute("INSERT INTO #t VALUES ('a')");
  other->Execute("INSERT INTO #t VALUES (7)");
  EXPECT_EQ(All(*one, "SELECT A FROM #t WHERE A = 'A'"), "a");
  EXPECT_EQ(All(*other, "SELECT A FROM #t WHERE A = '7'"), "7");
}

}  // namespace
}  // namespace kvraedi::sqlite
