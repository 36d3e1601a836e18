#include "sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class DefinitionsTest : public SqliteTest {};

TEST_F(DefinitionsTest, ColumnsKeepTheirTypeAndGetTheirAffinity) {
  const struct {
    const char* type;
    const char* declared;
    const char* stored;  // the kind of value that the text '12' becomes
  } cases[] = {
      {"[int]", "int", "integer"},
      {"bit", "int_bit", "integer"},
      {"bigint", "bigint", "integer"},
      {"money", "real_money", "real"},
      {"decimal(18, 4)", "real_decimal(18,4)", "real"},
      {"[float]", "real_float", "real"},
      {"[varchar](50)", "varchar(50)", "text"},
      {"nvarchar(MAX)", "nvarchar", "text"},
      {"ntext", "ntext", "text"},
      {"uniqueidentifier", "text_uniqueidentifier", "text"},
      {"varbinary(MAX)", "blob_varbinary", "text"},
  };
  for (const auto& c : cases) {
    db_->Run("CREATE TABLE dbo.T (C " + std::string(c.type) + " NULL)");
    EXPECT_EQ(Raw("SELECT lower(type) FROM pragma_table_info('T')"), c.declared);
    Raw("INSERT INTO T VALUES ('12')");
    EXPECT_EQ(Raw("SELECT typeof(C) FROM T"), c.stored) << c.type;
    db_->Run("DROP TABLE T");
  }
  EXPECT_NE(DescriptionOf([this] { db_->Run("CREATE TABLE T (C dinero)"); }), "");
}

TEST_F(DefinitionsTest, AScriptIsDoneWhollyOrNotAtAll) {
  EXPECT_NE(DescriptionOf([this] {
              db_->Run(
                  "CREATE TABLE A (N int);\nCREATE FUNCTION dbo.f(@a int) RETURNS int AS BEGIN"
                  " RETURN @a; END\nGO\nINSERT INTO A (N) VALUES (1); CREATE TABLA B (N int)");
            }),
            "");
  EXPECT_EQ(Raw("SELECT COUNT(*) FROM sqlite_master"), "0");
  EXPECT_NE(DescriptionOf([this] { db_->Open("SELECT dbo.f(1)"); }), "");
  db_->BeginTrans();
  db_->Run("CREATE TABLE A (N datetime); INSERT INTO A (N) VALUES ('1/1/2024')");
  db_->RollbackTrans();
  db_->Run("CREATE TABLE A (N varchar(9)); INSERT INTO A (N) VALUES ('1/1/2024')");
  EXPECT_EQ(All("SELECT N FROM A"), "1/1/2024");
}

}  // namespace
}  // namespace kvraedi::sqlite
