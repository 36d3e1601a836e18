#include "sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class StatementCacheTest : public SqliteTest {
 protected:
  StatementCacheTest() { db_->Run("CREATE TABLE T (A int, B varchar(20), F datetime)"); }

  std::size_t KeptAfter(const std::vector<std::string>& statements) {
    db_ = OpenInMemory();
    db_->Run("CREATE TABLE T (A int, B varchar(20), F datetime)");
    for (const std::string& sql : statements) db_->Execute(sql);
    return Kept().size();
  }
};

TEST_F(StatementCacheTest, StatementsOfOneShapeShareOneStatement) {
  const struct {
    std::vector<std::string> statements;
    std::size_t kept;
  } cases[] = {
      {{"INSERT INTO T (A, B) VALUES (1, 'a')", "INSERT INTO T (A, B) VALUES (-2.5e3, 'it''s')"},
       2},
      {{"INSERT INTO T (A, B) VALUES (1, 'a')", "INSERT INTO T (A, B) VALUES (22, N'''')"}, 1},
      {{"UPDATE T SET A = 1 WHERE B = 'x'", "UPDATE T SET A = 1 WHERE B = 5"}, 3},
      {{"SELECT A FROM T ORDER BY 1", "SELECT A FROM T ORDER BY 2 - 1"}, 2},
      {{"SELECT TOP 1 A FROM T", "SELECT TOP 2 A FROM T"}, 2},
      {{"SELECT CAST(B AS varchar(3)) FROM T", "SELECT CAST(B AS varchar(5)) FROM T"}, 2},
      {{"SELECT A FROM T WHERE A = 1 -- 1", "SELECT A FROM T WHERE A = 2 -- 1"}, 1},
      {{"SELECT A FROM T WHERE A = 1", "SELECT A FROM T WHERE A = 2;"}, 1},
      {{"SELECT A FROM T WHERE A = 1", "SELECT A FROM T WHERE A = NULL"}, 2},
      {{"CREATE TABLE #t (A int)", "INSERT INTO #t (A) VALUES (1)", "SELECT A FROM [#t]"}, 2},
      {{"SELECT A FROM T", "CREATE TABLE U (A int)"}, 0},
      {{"SET NOCOUNT ON", "SET DATEFORMAT dmy"}, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(KeptAfter(c.statements), c.kept) << c.statements.front();
  }
}

TEST_F(StatementCacheTest, SharedStatementsGetTheirOwnLiterals) {
  for (const char* values :
       {"1, 'texto''1', '01/03/2024'", "2, 'texto''2', '20240302'", "3, 'texto''3', '3/3/2024'"}) {
    db_->Execute("INSERT INTO T (A, B, F) VALUES (" + std::string(values) + ")");
  }
  EXPECT_EQ(Raw("SELECT A || B || F FROM T"),
            "1texto'12024-03-01\n2texto'22024-03-02\n3texto'32024-03-03");
  EXPECT_EQ(
      DescriptionOf([this] { db_->Execute("INSERT INTO T (A, B, F) VALUES (1, '', '3/3')"); }),
      "La conversión del texto '3/3' en fecha no es posible. Tabla 'T', columna 'F'.");
  EXPECT_EQ(All("SELECT A FROM T WHERE F = '3/3/2024'"), "3");
  EXPECT_EQ(All("SELECT A FROM T WHERE F = '20240301'"), "1");
}

TEST_F(StatementCacheTest, TheLeastUsedGoesFirst) {
  db_ = OpenInMemory(2);
  db_->Run("CREATE TABLE T (A int)");
  db_->Execute("SELECT A FROM T WHERE A = 1");
  db_->Execute("SELECT A FROM T WHERE A > 1");
  db_->Execute("SELECT A FROM T WHERE A = 2");
  db_->Execute("SELECT A FROM T WHERE A < 1");
  EXPECT_EQ(Kept(), (std::vector<std::string>{"SELECT A FROM T WHERE A < ?1",
                                              "SELECT A FROM T WHERE A = ?1"}));
}

TEST_F(StatementCacheTest, AnEvictedOrForgottenStatementLivesOnInItsRecordset) {
  db_ = OpenInMemory(1);
  db_->Run("CREATE TABLE T (A int)");
  db_->Execute("INSERT INTO T (A) VALUES (1), (2)");
  auto rows = db_->Open("SELECT A FROM T WHERE A > 0");
  db_->Execute("SELECT A FROM T WHERE A = 2");
  db_->Execute("CREATE TABLE U (A int)");
  rows->MoveNext();
  EXPECT_EQ(rows->Get<int>(0), 2);
  rows.reset();
  EXPECT_TRUE(Kept().empty());
}

TEST_F(StatementCacheTest, AFailedStatementCanRunAgain) {
  db_->Run("CREATE UNIQUE INDEX IX ON T (A)");
  db_->Execute("INSERT INTO T (A) VALUES (1)");
  EXPECT_NE(DescriptionOf([this] { db_->Execute("INSERT INTO T (A) VALUES (1)"); }), "");
  EXPECT_EQ(db_->Execute("INSERT INTO T (A) VALUES (2)"), 1);
  EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(StatementCacheTest, ThousandsOfLiteralsAreTaken) {
  std::string sql = "INSERT INTO T (A, F) VALUES (0, '')";
  for (int i = 1; i < 20000; ++i) sql += ",(" + std::to_string(i) + ",'01/03/2024')";
  EXPECT_EQ(db_->Execute(sql), 20000);
  EXPECT_EQ(Raw("SELECT COUNT(*) FROM T WHERE F = '2024-03-01' AND typeof(A) = 'integer'"),
            "19999");
  EXPECT_TRUE(Kept().empty());
}

}  // namespace
}  // namespace kvraedi::sqlite
