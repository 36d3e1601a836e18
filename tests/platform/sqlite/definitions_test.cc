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

TEST_F(DefinitionsTest, KeysDefaultsAndIdentity) {
  db_->Run(R"(
      CREATE TABLE [dbo].[Cab] (
        ID int IDENTITY(1,1) NOT NULL,
        Codigo smallint NOT NULL,
        Nombre varchar(20) NOT NULL CONSTRAINT DF_N DEFAULT ('it''s; GO'),
        Alta datetime NOT NULL DEFAULT GETDATE(),
        Baja datetime DEFAULT '31/12/9999',
        Tasa decimal(5,2) DEFAULT -1.5,
        CONSTRAINT [PK_Cab] PRIMARY KEY CLUSTERED ([Codigo] ASC) ON [PRIMARY]
      ) ON [PRIMARY]
      GO
      CREATE TABLE Lin (Cab int NOT NULL, Num int, PRIMARY KEY (Cab, Num));
      ALTER TABLE Lin ADD Texto varchar(10) NOT NULL DEFAULT ''
  )");
  db_->Execute("INSERT INTO Cab (Codigo) VALUES (7)");
  EXPECT_EQ(Raw("SELECT ID || Nombre || Alta || Baja || Tasa FROM Cab"),
            "1it's; GO2024-06-05 07:08:099999-12-31-1.5");
  EXPECT_NE(DescriptionOf([this] { db_->Execute("INSERT INTO Cab (Codigo) VALUES (7)"); }), "");
  EXPECT_NE(DescriptionOf([this] { db_->Execute("INSERT INTO Lin (Cab) VALUES (7)"); }), "");
  EXPECT_EQ(db_->Execute("INSERT Lin VALUES (7, 1, 'a')"), 1);
  EXPECT_EQ(db_->Execute("DELETE Lin WHERE Texto = 'A'"), 1);
  EXPECT_NE(DescriptionOf([this] { db_->Run("CREATE TABLE X (F datetime DEFAULT '30/02/2024')"); }),
            "");
}

TEST_F(DefinitionsTest, ComputedColumnsFollowTheOnesTheyName) {
  db_->Run(R"(
      CREATE TABLE P (ID int IDENTITY(1,1), Ini datetime, Precio money, Unidades int,
        Envio AS Ini, Total AS (Precio * (Unidades + 1)) PERSISTED, Fin datetime))");
  EXPECT_EQ(db_->Execute("INSERT INTO P VALUES ('1/2/2024', 1.5, 3, '')"), 1);
  EXPECT_EQ(All("SELECT Envio FROM P WHERE Envio = '20240201' AND Total = 6"), "2024-02-01");
  EXPECT_EQ(db_->Open("SELECT * FROM P")->Get<Currency>("Total"), Currency::FromInteger(6));
  db_->Execute("UPDATE P SET Ini = '31/01/2024'");
  EXPECT_EQ(All("SELECT ID FROM P WHERE Envio < '01/02/2024'"), "1");
  EXPECT_NE(DescriptionOf([this] { db_->Execute("UPDATE P SET Envio = '1/1/2024'"); }), "");
  EXPECT_NE(DescriptionOf([this] { db_->Run("CREATE TABLE X (A AS B, B int)"); }), "");
}

TEST_F(DefinitionsTest, TriggersStandInScripts) {
  db_->Run(R"(
      CREATE TABLE A (N int, OK bit NOT NULL DEFAULT 0);
      CREATE TABLE B (N int)
      GO
      CREATE TRIGGER Mover AFTER UPDATE OF OK ON A WHEN NEW.OK = 1 AND OLD.OK = 0
      BEGIN
        INSERT INTO B (N) SELECT CASE WHEN NEW.N > 5 THEN 5 ELSE NEW.N END;
        DELETE FROM B WHERE N = 3;
      END
      GO
      INSERT INTO A (N) VALUES (2), (3), (9))");
  EXPECT_EQ(db_->Execute("UPDATE A SET OK = 1"), 3);
  EXPECT_EQ(All("SELECT N FROM B ORDER BY N"), "2 5");
  db_->Run("DROP TRIGGER Mover");
  db_->Execute("UPDATE A SET OK = 0");
  db_->Execute("UPDATE A SET OK = 1");
  EXPECT_EQ(All("SELECT COUNT(*) FROM B"), "2");
}

TEST_F(DefinitionsTest, IndexNamesBelongToTheirTable) {
  db_->Run(R"(
      CREATE TABLE A (Fecha datetime, Doc varchar(20), N int);
      CREATE TABLE B (Fecha datetime);
      CREATE INDEX IX_1 ON A (Fecha DESC, N);
      CREATE NONCLUSTERED INDEX IX_1 ON dbo.B (Fecha) INCLUDE (Fecha) WITH (FILLFACTOR = 90);
      CREATE UNIQUE INDEX IX_2 ON A (Doc DESC, N))");
  const char* indexes = "SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name";
  EXPECT_EQ(Raw(indexes), "A_IX_1\nA_IX_2\nA_IX_2_numero\nB_IX_1");
  db_->Run("DROP INDEX IX_2 ON A; DROP INDEX B.IX_1");
  EXPECT_EQ(Raw(indexes), "A_IX_1");
  EXPECT_NE(DescriptionOf([this] { db_->Run("CREATE INDEX I ON A (N) WHERE N = 1"); }), "");
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

TEST_F(DefinitionsTest, NamesInQuotesAreNeverTexts) {
  db_->Run("CREATE TABLE [Con blanco] ([De]]r\"echo] int)");
  db_->Execute("INSERT INTO [Con blanco] ([De]]r\"echo]) VALUES (3)");
  EXPECT_EQ(All("SELECT t.\"De]r\"\"echo\" FROM \"con blanco\" t"), "3");
  EXPECT_NE(DescriptionOf([this] { db_->Open("SELECT \"Nada\" FROM [Con blanco]"); }), "");
}

class FunctionsTest : public SqliteTest {
 protected:
  FunctionsTest() {
    db_->Run(R"(
        CREATE TABLE F (Serie int, Codigo int, Fecha datetime);
        CREATE TABLE L (Serie int, Codigo int, Importe money, Fecha datetime);
        INSERT INTO F (Serie, Codigo, Fecha) VALUES (1, 1, '1/1/2024'), (1, 2, '2/1/2024');
        INSERT INTO L (Serie, Codigo, Importe, Fecha) VALUES (1, 1, 10.005, '1/1/2024'),
          (1, 1, 2.5, '2/1/2024'), (1, 2, 7, '2/1/2024')
        GO
        CREATE FUNCTION dbo.fn_Suma(@uno int, @Serie smallint, @codigo int) RETURNS money AS
        BEGIN
          RETURN (SELECT ISNULL(SUM(ROUND(f.Importe, 2)), 0) FROM L f
                  WHERE f.Serie = @serie AND f.Codigo = @Codigo);
        END
        GO
        CREATE FUNCTION [dbo].[fn_Clase](@x money) RETURNS varchar(10) AS
        BEGIN
          RETURN CASE WHEN @x > 10 THEN 'alto' ELSE 'it''s bajo' END
        END)");
  }
};

TEST_F(FunctionsTest, CallsGetTheirArguments) {
  // The function's own alias is f too: it must not hide the one of the statement.
  EXPECT_EQ(All("SELECT dbo.fn_Suma(1, f.Serie, f.Codigo) AS S FROM F f ORDER BY f.Codigo"),
            "12.51 7");
  EXPECT_EQ(All("SELECT dbo.fn_suma(1, 1, 1 + 1)"), "7");
  EXPECT_EQ(All("SELECT dbo.fn_Clase(dbo.fn_Suma(1, f.Serie, f.Codigo)) AS S FROM F f"
                " WHERE dbo.fn_Suma(1, f.Serie, f.Codigo) > 7"),
            "alto");
  EXPECT_EQ(All("SELECT dbo.fn_Clase(3)"), "it's bajo");
  EXPECT_EQ(All("SELECT dbo.fn_Clase(30)"), "alto");
}

TEST_F(FunctionsTest, DatesInABodyAreDates) {
  db_->Run(
      "CREATE FUNCTION dbo.fn_Dia(@d datetime) RETURNS int AS BEGIN RETURN (SELECT COUNT(*)"
      " FROM L WHERE L.Fecha = @d AND L.Fecha > '31/12/2023') END");
  EXPECT_EQ(All("SELECT dbo.fn_Dia('02/01/2024')"), "2");
  EXPECT_NE(DescriptionOf([this] { db_->Open("SELECT dbo.fn_Dia('02/13/2024')"); }), "");
}

TEST_F(FunctionsTest, WrongCallsAndDefinitionsAreErrors) {
  for (const char* sql : {"SELECT dbo.fn_Nada(1)", "SELECT dbo.fn_Suma(1, 2)",
                          "SELECT dbo.fn_Suma(1, Serie, f.Codigo) FROM F f"}) {
    EXPECT_NE(DescriptionOf([&] { db_->Open(sql); }), "") << sql;
  }
  for (const char* sql :
       {"CREATE FUNCTION dbo.fn_Suma(@a int) RETURNS int AS BEGIN RETURN 1 END",
        "CREATE FUNCTION dbo.g(@a int) RETURNS int AS BEGIN DECLARE @x int RETURN @x END",
        "DROP FUNCTION dbo.fn_Nada"}) {
    EXPECT_NE(DescriptionOf([&] { db_->Execute(sql); }), "") << sql;
  }
  db_->Run("CREATE FUNCTION dbo.g(@a int) RETURNS int AS BEGIN RETURN dbo.g(@a) END");
  EXPECT_NE(DescriptionOf([this] { db_->Open("SELECT dbo.g(1)"); }), "");
}

TEST_F(FunctionsTest, DefinitionsCanBeReplacedAndDropped) {
  EXPECT_EQ(All("SELECT dbo.fn_Clase(3)"), "it's bajo");
  db_->Run("ALTER FUNCTION dbo.fn_Clase(@x money) RETURNS int AS BEGIN RETURN @x + 1 END");
  EXPECT_EQ(All("SELECT dbo.fn_Clase(3)"), "4");
  db_->Run("DROP FUNCTION dbo.fn_Clase; DROP FUNCTION IF EXISTS dbo.fn_Clase");
  EXPECT_NE(DescriptionOf([this] { db_->Open("SELECT dbo.fn_Clase(3)"); }), "");
}

}  // namespace
}  // namespace kvraedi::sqlite
