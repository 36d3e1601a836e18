#include "tests/platform/sqlite/sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class TemporaryTablesTest : public SqliteTest {
 protected:
  TemporaryTablesTest() { Create(); }
  void Create() {
    db_->Execute("CREATE TABLE #Lin815 (Doc [varchar](17), Art [varchar](17), ID [int] IDENTITY)");
  }
  std::string Indexes() { return Raw("SELECT name FROM sqlite_temp_master WHERE type = 'index'"); }
  int Rows() { return db_->Open("SELECT COUNT(*) FROM #Lin815")->Get<int>(0); }
};

TEST_F(TemporaryTablesTest, GetAnIndexOfTheColumnsComparedWithValues) {
  const struct {
    const char* sql;
    const char* columns;
  } cases[] = {
      {"SELECT l.ID FROM #Lin815 l WHERE l.Doc = '1'", "#lin815: \"doc\" "},
      {"UPDATE #LIN815 SET Doc = '2' WHERE Art = '3' AND [Doc] = '1'",
       "#lin815: \"art\" , \"doc\" "},
      {"DELETE FROM #Lin815 WHERE Doc =00004711", "#lin815: \"doc\" COLLATE KVR_NUMERO"},
      {"INSERT INTO #Lin815 (Doc) VALUES ('1')", ""},
      {"UPDATE #Lin815 SET Doc = '2'", ""},
      {"SELECT ID FROM #Lin815 WHERE Doc > '1' OR Doc IS NULL OR Doc = Art", ""},
  };
  for (const auto& c : cases) {
    db_->Execute("DROP TABLE #Lin815");
    Create();
    db_->Execute(c.sql);
    db_->Execute(c.sql);
    EXPECT_EQ(Indexes(), c.columns) << c.sql;
  }
}

TEST_F(TemporaryTablesTest, StatementsUseTheIndexAndFindWhatTheyFoundWithoutIt) {
  for (const char* row : {"'4711', 'a'", "'00004711', 'b'", "'5', 'A '"}) {
    db_->Execute(std::string("INSERT INTO #Lin815 VALUES (") + row + ")");
  }
  const auto open = db_->Open("SELECT Art FROM #Lin815 ORDER BY ID");
  EXPECT_EQ(db_->Execute("UPDATE #Lin815 SET Art = Art WHERE Art = 'a'"), 2);
  EXPECT_EQ(db_->Execute("UPDATE #Lin815 SET Doc = Doc WHERE Doc = '4711' AND Art = 'A'"), 1);
  EXPECT_EQ(All("SELECT Art FROM #Lin815 WHERE Doc = 4711 ORDER BY ID"), "a b");
  open->MoveNext();
  EXPECT_EQ(open->Get<std::string>(0), "b");
  EXPECT_NE(PlanOf("SELECT Doc FROM #Lin815 WHERE Art = 'b'").find("USING INDEX"),
            std::string::npos);
}

TEST_F(TemporaryTablesTest, KeptStatementsGoWithTheTable) {
  const std::string insert = "INSERT INTO #Lin815 VALUES ('1', 'a')";
  db_->Execute(insert);
  db_->Execute("DROP TABLE #Lin815");
  EXPECT_NE(DescriptionOf([&] { db_->Execute(insert); }), "");
  db_->BeginTrans();
  db_->Execute("CREATE TABLE #Lin815 (Art [int], Doc [smalldatetime])");
  db_->Execute("INSERT INTO #Lin815 VALUES ('7', '01/03/2024')");
  EXPECT_EQ(All("SELECT Doc FROM #Lin815 WHERE Doc = '20240301' AND Art = '7'"), "2024-03-01");
  db_->RollbackTrans();
  EXPECT_NE(DescriptionOf([&] { Rows(); }), "");
  Create();
  db_->Execute(insert);
  EXPECT_EQ(All("SELECT Art FROM #Lin815 WHERE Doc = '1'"), "a");
}

}  // namespace
}  // namespace kvraedi::sqlite
