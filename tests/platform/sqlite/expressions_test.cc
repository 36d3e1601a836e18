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

TEST_F(ExpressionsTest, AreComparedAsTheirColumns) {
  const std::pair<const char*, const char*> cases[] = {
      {"RTRIM(Nombre) = 'ABC '", "1"},
      {"'ABC ' = RTRIM(T.Nombre)", "1"},
      {"LOWER(Nombre) = UPPER(Nombre)", "1 2"},
      {"RTRIM(Nombre) IN ('X', 'ABC')", "1"},
      {"RTRIM(Nombre) IN (SELECT UPPER(Nombre) FROM T WHERE ID = 2)", "2"},
      {"UPPER(Nombre) NOT BETWEEN 'aba' AND 'abc'", "2"},
      {"COALESCE(NULL, Nombre, '') = 'ABC'", "1"},
      {"ISNULL(Nombre, '') + 'Z' = 'abcz'", "1"},
      {"RTRIM(Resto) = 7", "1"},
      {"COALESCE(Fecha, GETDATE()) = '20240301'", "1"},
      {"COALESCE(Dia, Fecha) > '01/03/2024 00:00'", "2"},
      {"(SELECT MAX(x.Fecha) FROM T x WHERE x.ID = T.ID) = '01/03/2024'", "1"},
      {"GETDATE() > '6/5/2024'", "1 2"},
      {"CAST(Fecha AS date) = '02/03/2024'", "2"},
      {"Total + 1 = '3.50'", "1"},
      {"ABS(-Total) BETWEEN '2' AND '10'", "1"},
      {"CASE WHEN ID - 1 > 0 THEN Nombre ELSE '' END = 'ABD'", "2"},
      {"'a' = 'A '", "1 2"},
  };
  for (const auto& [condition, rows] : cases) {
    EXPECT_EQ(All("SELECT ID FROM T WHERE " + std::string(condition)), rows) << condition;
  }
  EXPECT_EQ(All("SELECT g.Nombre FROM [Gestión 2026].dbo.T g, otra.[dbo].T o WHERE o.ID = g.ID"),
            "abc Abd");
  EXPECT_EQ(All("SELECT Nombre FROM T GROUP BY Nombre HAVING MAX(Fecha) = '01/03/2024'"), "abc");
}

TEST_F(ExpressionsTest, SumsAreToldFromJoinedTexts) {
  const std::pair<const char*, const char*> cases[] = {
      {"RTRIM(Nombre) + LTRIM(Resto)", "abc007"},
      {"(Nombre + Resto) + UPPER(Nombre)", "abc007ABC"},
      {"CAST(ID AS varchar(3)) + CONVERT(varchar(3), ID)", "11"},
      {"CASE ID WHEN 1 THEN 'a' END + CASE ID WHEN 1 THEN RTRIM(Resto) END", "a007"},
      {"(Total * 2) + (Total - 1)", "6.5"},
      {"SUM(Total) + COUNT(ID)", "3.5"},
      {"-Total + ISNULL(Total, 0) + -1", "-1"},
      {"(SELECT x.Total FROM T x WHERE x.ID = 1) + ROUND(Total, 0)", "5.5"},
  };
  for (const auto& [sum, value] : cases) {
    EXPECT_EQ(All("SELECT " + std::string(sum) + " FROM T WHERE ID = 1"), value) << sum;
  }
}

TEST_F(ExpressionsTest, WhatCouldOnlyBeGuessedIsRefused) {
  for (const char* sql :
       {"SELECT Fecha + 30 FROM T", "SELECT GETDATE() - 1", "SELECT MAX(Dia) + 1 FROM T",
        "SELECT Nombre + ID FROM T", "SELECT '1' + 2", "SELECT RTRIM(Nombre) + SUM(Total) FROM T",
        "SELECT s.a + s.b FROM (SELECT ID AS a, ID AS b FROM T) s",
        "SELECT CASE ID WHEN 1 THEN 'a' END + CASE ID WHEN 1 THEN 2 END FROM T",
        "SELECT ID FROM T WHERE hex(Nombre) = 'a'"}) {
    EXPECT_TRUE(DescriptionOf([&] { db_->Open(sql); }).starts_with("La base de datos integrada"))
        << sql;
  }
}

TEST_F(ExpressionsTest, DatesThatAServerWouldReadOtherwiseAreRefused) {
  for (const char* sql :
       {"UPDATE T SET Fecha = '2024-03-05'", "SELECT ID FROM T WHERE Fecha > N'2024-03-05 10:00'",
        "INSERT INTO T (Fecha) VALUES ('2024-3-5')",
        "CREATE TABLE X (F datetime DEFAULT '2024-03-05')"}) {
    EXPECT_NE(DescriptionOf([&] { db_->Execute(sql); }).find("aaaammdd"), std::string::npos) << sql;
  }
  EXPECT_EQ(All("SELECT ID FROM T WHERE Fecha = '2024-03-01T00:00:00' OR Dia = '2024-03-02'"),
            "1 2");
}

TEST_F(ExpressionsTest, ErrorsAreSpanish) {
  db_->Run(
      "CREATE TABLE C (Codigo int NOT NULL PRIMARY KEY, N varchar(3)); INSERT INTO C VALUES (1, "
      "'a')");
  const std::pair<const char*, const char*> cases[] = {
      {"INSERT INTO C (N) VALUES ('b')", "el valor NULL en la columna 'Codigo', tabla 'C'"},
      {"INSERT INTO C VALUES (1, 'b')", "clave duplicada en C.Codigo"},
      {"UPDATE C SET N = 'abcd'", "truncarían en la tabla 'C', columna 'N'. Valor truncado: 'abc'"},
      {"UPDATE C SET Codigo = 3000000000",
       "tipo de datos int, valor = 3000000000. Tabla 'C', columna 'Codigo'"},
      {"INSERT INTO C VALUES (1)", "no corresponden a la definición"},
      {"DELETE FROM NoEsta", "El nombre de objeto 'NoEsta' no es válido"},
      {"DELETE FROM C WHERE NoEsta = 1", "El nombre de columna 'NoEsta' no es válido"},
      {"UPDATE C SET N = N WHERE OR", "Sintaxis incorrecta cerca de 'OR'"},
      {"CREATE TABLE C (A int)", "Ya hay un objeto"},
      {"SET DATEFORMAT mdy", "no admite SET DATEFORMAT mdy"},
      {"DELETE FROM T WHERE Fecha = '31/02/2024'", "'31/02/2024' en fecha no es posible"}};
  for (const auto& [sql, part] : cases) {
    const std::string told = DescriptionOf([&, text = sql] { db_->Execute(text); });
    EXPECT_NE(told.find(part), std::string::npos) << sql << "\n" << told;
  }
}

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
