#include "tests/platform/conexion/connection_conformance.h"

#include <functional>
#include <utility>
#include <vector>

namespace kvraedi::conformance {
namespace {

template <class Call>
std::int32_t ErrorOf(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace

void ConnectionConformance::SetUp() {
  const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
  const auto missing = GetParam().cannot.find(test.substr(0, test.find('/')));
  if (missing != GetParam().cannot.end()) GTEST_SKIP() << missing->second;
  db_ = GetParam().open();
  db_->Execute(
      "CREATE TABLE Notas (ID [int] IDENTITY(1,1), Nombre [varchar](40), Doc_Num [varchar](30),"
      " Fecha [smalldatetime], Hora [datetime], Total [money], Peso [float],"
      " Serie [smallint], Activo [bit] NOT NULL DEFAULT ((0)), Datos [varbinary](MAX))");
}

void ConnectionConformance::Insert(const std::string& column, const std::string& value) {
  db_->Execute("INSERT INTO Notas (" + column + ") VALUES (" + value + ")");
}

std::string ConnectionConformance::All(const std::string& sql) {
  std::string all;
  for (auto rows = db_->Open(sql); !rows->Eof(); rows->MoveNext()) {
    if (!all.empty()) all += '|';
    all += rows->IsNull(0) ? "NULL" : rows->Get<std::string>(0);
  }
  return all;
}

std::int64_t ConnectionConformance::Count(const std::string& condition) {
  return db_->Open("SELECT COUNT(*) FROM Notas WHERE " + condition)->Get<std::int64_t>(0);
}

TEST_P(ConnectionConformance, TextsKeepEveryCharacter) {
  const std::vector<std::string> texts = {
      "O'Donnell",  "a;b -- c /* d */", "¿? ? ?1 :x @y $z", "[corchetes] \"comillas\"", "",
      "ñandú 'x''", "\r\n\t",           "ORDER BY 1",       "CONVERT(int, 'GETDATE()')"};
  for (const std::string& text : texts) {
    std::string doubled;
    for (const char c : text) doubled += c == '\'' ? "''" : std::string(1, c);
    db_->Execute("DELETE FROM Notas");
    Insert("Nombre", "'" + doubled + "'");
    EXPECT_EQ(All("SELECT Nombre FROM Notas"), text);
    EXPECT_EQ(Count("Nombre = N'" + doubled + "'"), 1) << text;
  }
}

TEST_P(ConnectionConformance, TextsCompareWithoutCaseAndTrailingBlanks) {
  Insert("Nombre", "'Peñón  '");
  const std::pair<const char*, int> cases[] = {{"peñón", 1}, {"PEÑÓN", 1}, {"Peñón      ", 1},
                                               {"Penon", 0}, {"peñon", 0}, {" Peñón", 0}};
  for (const auto& [text, found] : cases) {
    EXPECT_EQ(Count("Nombre = '" + std::string(text) + "'"), found) << text;
    EXPECT_EQ(Count("ISNULL(Nombre,'') = '" + std::string(text) + "'"), found) << text;
    EXPECT_EQ(Count("Nombre IN ('x', '" + std::string(text) + "')"), found) << text;
  }
}

TEST_P(ConnectionConformance, GroupsFollowTheSameComparison) {
  db_->Execute(
      "INSERT INTO Notas (Nombre, Fecha, Serie) VALUES ('Ñu', '1/3/2024', 1),"
      " ('ñu ', '20240301', 2), ('nu', '20240302', 4)");
  EXPECT_EQ(All("SELECT SUM(n.Serie) FROM Notas n GROUP BY n.Nombre ORDER BY n.Nombre"), "4|3");
  EXPECT_EQ(All("SELECT SUM(Serie) FROM Notas GROUP BY Fecha ORDER BY Fecha"), "3|4");
  EXPECT_EQ(All("SELECT SUM(Serie) FROM Notas GROUP BY ISNULL(Nombre, ''), Fecha ORDER BY 1"),
            "3|4");
  EXPECT_EQ(All("SELECT COUNT(DISTINCT Nombre) FROM Notas"), "2");
  EXPECT_EQ(All("SELECT COUNT(*) FROM (SELECT Nombre FROM Notas UNION SELECT 'ÑU') T"), "2");
}

TEST_P(ConnectionConformance, TextsAreOrderedAsInSpanish) {
  for (const char* name : {"oca", "ñu", "Nube", "zorro", "éter", "esta", "nz", "Ábaco", "abad"}) {
    Insert("Nombre", "'" + std::string(name) + "'");
  }
  EXPECT_EQ(All("SELECT Nombre FROM Notas ORDER BY Nombre"),
            "Ábaco|abad|esta|éter|Nube|nz|ñu|oca|zorro");
}

TEST_P(ConnectionConformance, DatesCompareInEveryForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"02/01/2024", "Fecha = '20240102'"},
      {"20240301", "Fecha = '1/3/2024'"},
      {"20240301", "Fecha BETWEEN '01/03/2024' AND '31/03/2024'"},
      {"31/03/2024", "Fecha BETWEEN '01/03/2024' AND '31/03/2024'"},
      {"09/03/2024", "'10/03/2024' > Fecha"},
      {"01/03/2024", "Fecha IN ('29/02/2024', '2024-03-01T00:00:00')"},
      {"01/03/2024 10:20", "Fecha > '01/03/2024'"},
      {"01/03/2024 10:20", "Fecha = '20240301 10:20:00'"},
      {"01/03/2024 00:00:00", "Fecha = '01/03/2024'"},
      {"", "Fecha = '01/01/1900'"},
      {"01/01/1900", "Fecha = ''"},
      {"01/10/2023", "Fecha < '02/03/2024'"},
      {"01/10/2023", "ISNULL(Fecha, '') < '02/03/2024'"},
  };
  for (const auto& [stored, condition] : cases) {
    db_->Execute("DELETE FROM Notas");
    Insert("Fecha", "'" + std::string(stored) + "'");
    EXPECT_EQ(Count(condition), 1) << stored << " " << condition;
  }
}

TEST_P(ConnectionConformance, DatesAreOrderedAndReadAsDates) {
  for (const char* date : {"02/01/2024", "31/12/2023 23:59", "20240101"}) {
    Insert("Fecha", "'" + std::string(date) + "'");
  }
  std::vector<FechaHora> dates;
  auto rows = db_->Open("SELECT Fecha FROM Notas ORDER BY Fecha DESC");
  for (; !rows->Eof(); rows->MoveNext()) dates.push_back(rows->Get<FechaHora>("FECHA"));
  EXPECT_EQ(dates, (std::vector<FechaHora>{{2024, 1, 2}, {2024, 1, 1}, {2023, 12, 31, 23, 59}}));
  EXPECT_EQ(db_->Open("SELECT MAX(Fecha) FROM Notas")->Get<FechaHora>(0), (FechaHora{2024, 1, 2}));
}

TEST_P(ConnectionConformance, ImpossibleDatesAreErrorsOnAnEmptyTable) {
  for (const char* sql : {"SELECT * FROM Notas n WHERE n.Fecha = '31/02/2024'",
                          "SELECT * FROM Notas WHERE Fecha BETWEEN '01/01/2024' AND 'abc'",
                          "SELECT * FROM Notas WHERE Hora IN ('20240101', '20241301')",
                          "SELECT * FROM (SELECT Fecha FROM Notas WHERE '29/02/2023' < Fecha) T"}) {
    EXPECT_EQ(ErrorOf([&] { db_->Open(sql); }), kErrorDatabase) << sql;
  }
  for (const char* sql : {"INSERT INTO Notas (Nombre, Fecha) VALUES ('a', '32/01/2024')",
                          "UPDATE Notas SET Nombre = 'b', Fecha = '20240230'",
                          "DELETE FROM Notas WHERE Fecha < '00/01/2024'"}) {
    EXPECT_EQ(ErrorOf([&] { db_->Execute(sql); }), kErrorDatabase) << sql;
  }
  EXPECT_EQ(Count("Nombre IS NOT NULL"), 0);
}

TEST_P(ConnectionConformance, ColumnsOfOneNameAreToldApart) {
  db_->Execute("CREATE TABLE Textos (ID [int], Fecha [varchar](20))");
  db_->Execute("INSERT INTO Textos (ID, Fecha) VALUES (1, '31/02/2024')");
  Insert("Fecha", "'01/03/2024'");
  const std::string join = "SELECT t.ID FROM Notas n INNER JOIN Textos AS t ON t.ID = n.ID WHERE ";
  EXPECT_EQ(All(join + "t.Fecha = '31/02/2024' AND n.Fecha = '20240301'"), "1");
  EXPECT_EQ(ErrorOf([&] { db_->Open(join + "n.Fecha = '31/02/2024'"); }), kErrorDatabase);
  EXPECT_EQ(All("SELECT ID FROM Notas n WHERE n.Fecha = '1/3/2024' AND EXISTS (SELECT * FROM Textos"
                " n WHERE n.Fecha = '31/02/2024')"),
            "1");
}

TEST_P(ConnectionConformance, TheClockIsThePorts) {
  Insert("Hora", "GETDATE()");
  EXPECT_EQ(db_->Open("SELECT Hora FROM Notas")->Get<FechaHora>(0),
            (FechaHora{2024, 6, 5, 7, 8, 9}));
}

TEST_P(ConnectionConformance, LikeKnowsSpanishLettersWildcardsAndEscapes) {
  for (const char* name : {"Núñez", "NÚÑEZ e Hijos", "Nunez", "50% más", "a_b"}) {
    Insert("Nombre", "'" + std::string(name) + "'");
  }
  const std::pair<const char*, int> cases[] = {{"'nÚÑ%'", 2},
                                               {"'%hijos'", 1},
                                               {"'n_ñez'", 1},
                                               {"'%%%'", 5},
                                               {"'50!% m%' ESCAPE '!'", 1},
                                               {"'a!_b' ESCAPE '!'", 1},
                                               {"'nunez'", 1},
                                               {"'x%'", 0},
                                               {"'%e%h%s'", 1},
                                               {"''", 0}};
  for (const auto& [pattern, found] : cases) {
    EXPECT_EQ(Count("Nombre LIKE " + std::string(pattern)), found) << pattern;
  }
}

TEST_P(ConnectionConformance, NumbersFindTextsByValue) {
  for (const char* text : {"00004711", "4711", "47110"}) {
    Insert("Doc_Num", "'" + std::string(text) + "'");
  }
  EXPECT_EQ(All("SELECT Doc_Num FROM Notas WHERE Doc_Num = '4711'"), "4711");
  EXPECT_EQ(Count("Doc_Num =00004711"), 2);
  EXPECT_EQ(Count("Doc_Num IN (4711, 12)"), 2);
  EXPECT_EQ(db_->Execute("UPDATE Notas SET Nombre = 'hallado' WHERE 4711 = Doc_Num"), 2);
}

TEST_P(ConnectionConformance, ATextThatIsNoNumberIsNotComparedWithOne) {
  Insert("Doc_Num", "'4711x'");
  for (const char* condition : {"Doc_Num =4711", "Doc_Num <> 4711", "4711 < Doc_Num",
                                "Doc_Num IN (1, 2)", "Doc_Num BETWEEN 1 AND 2", "Doc_Num = ID"}) {
    EXPECT_EQ(ErrorOf([&] { Count(condition); }), kErrorDatabase) << condition;
  }
  EXPECT_EQ(ErrorOf([&] { db_->Execute("DELETE FROM Notas WHERE Doc_Num = 4711"); }),
            kErrorDatabase);
  EXPECT_EQ(Count("Doc_Num = '4711x'"), 1);
}

TEST_P(ConnectionConformance, NumbersStoredInTextsKeepTheirDigits) {
  const std::pair<const char*, const char*> cases[] = {
      {"4711", "4711"},
      {"00004711", "4711"},
      {"0", "0"},
      {"123456789012345678", "123456789012345678"},
      {"00123456789012345678901234", "123456789012345678901234"},
      {"12.50", "12.50"}};
  for (const auto& [number, stored] : cases) {
    db_->Execute("DELETE FROM Notas");
    Insert("Doc_Num", number);
    EXPECT_EQ(All("SELECT Doc_Num FROM Notas"), stored);
    EXPECT_EQ(Count("Doc_Num = " + std::string(number)), 1) << number;
    db_->Execute("UPDATE Notas SET Doc_Num = " + std::string(number));
    EXPECT_EQ(All("SELECT Doc_Num FROM Notas"), stored);
  }
}

TEST_P(ConnectionConformance, MoneyIsExactToFourDecimals) {
  const std::pair<const char*, std::int64_t> cases[] = {{"0.1 + 0.2", 3000},
                                                        {"1.0005", 10005},
                                                        {"-2147483.6475", -21474836475},
                                                        {"9999999999.9999", 99999999999999},
                                                        {"7", 70000},
                                                        {"1.00005", 10001}};
  for (const auto& [written, units] : cases) {
    db_->Execute("DELETE FROM Notas");
    Insert("Total", written);
    EXPECT_EQ(db_->Open("SELECT Total FROM Notas")->Get<Currency>(0).Units(), units) << written;
  }
  db_->Execute("UPDATE Notas SET Total = 10");
  EXPECT_EQ(All("SELECT Total / 4 FROM Notas"), "2.5");
  for (int i = 0; i < 1000; ++i) db_->Execute("UPDATE Notas SET Total = Total + 0.1");
  EXPECT_EQ(db_->Open("SELECT Total FROM Notas")->Get<Currency>(0).Units(), 1100000);
}

/// One row of each type: what is stored, and what is read back; "" for a refusal.
TEST_P(ConnectionConformance, ColumnsTakeWhatFitsThem) {
  db_->Execute(
      "CREATE TABLE Tipos (T5 varchar(5), N5 nvarchar(5), TI tinyint, SI smallint, I int,"
      " BI bigint, B bit, D decimal(6,2), DOC numeric(17,0), M money, SM smallmoney,"
      " SD smalldatetime, DT datetime, DIA date)");
  const struct {
    const char* column;
    const char* written;
    const char* stored;
  } cases[] = {
      {"T5", "'ñañañ'", "ñañañ"},
      {"T5", "'abcde   '", "abcde"},
      {"T5", "'abcdef'", ""},
      {"T5", "'abc' + 'def'", ""},
      {"T5", "123456", ""},
      {"N5", "'ñandús'", ""},
      {"N5", "'ab   '", "ab   "},
      {"TI", "255", "255"},
      {"TI", "256", ""},
      {"TI", "-1", ""},
      {"SI", "'-32768'", "-32768"},
      {"SI", "32768", ""},
      {"SI", "' 0012 '", "12"},
      {"SI", "'doce'", ""},
      {"I", "2147483647", "2147483647"},
      {"I", "'2147483648'", ""},
      {"I", "2147483647 + 1", ""},
      {"I", "12.9", "12"},
      {"I", "'12.9'", ""},
      {"BI", "9223372036854775807", "9223372036854775807"},
      {"BI", "9223372036854775808", ""},
      {"D", "'1234.565'", "1234.57"},
      {"D", "-9999.994", "-9999.99"},
      {"D", "9999.995", ""},
      {"D", "''", ""},
      {"D", "1 + 0.125", "1.13"},
      {"DOC", "'00012345678901234567'", "12345678901234567"},
      {"DOC", "123456789012345678", ""},
      {"M", "'1.00005'", "1.0001"},
      {"M", "''", "0"},
      {"M", "1000000000000000", ""},
      {"SM", "214748.3647", "214748.3647"},
      {"SM", "214748.3648", ""},
      {"T5", "NULL", "NULL"},
  };
  for (const auto& c : cases) {
    const std::string column = c.column;
    const bool refused = *c.stored == '\0';
    const std::string insert = "INSERT INTO Tipos (" + column + ") VALUES (" + c.written + ")";
    const std::string update = "UPDATE Tipos SET " + column + " = " + c.written;
    db_->Execute("DELETE FROM Tipos");
    EXPECT_EQ(ErrorOf([&] { db_->Execute(insert); }), refused ? kErrorDatabase : 0) << insert;
    EXPECT_EQ(All("SELECT " + column + " FROM Tipos"), c.stored) << insert;
    if (refused) db_->Execute("INSERT INTO Tipos (B) VALUES (1)");
    EXPECT_EQ(ErrorOf([&] { db_->Execute(update); }), refused ? kErrorDatabase : 0) << update;
    EXPECT_EQ(All("SELECT " + column + " FROM Tipos"), refused ? "NULL" : c.stored) << update;
  }
  db_->Execute("INSERT INTO Tipos (B) VALUES (7), ('TRUE'), (0), ('false')");
  EXPECT_EQ(All("SELECT COUNT(*) FROM Tipos WHERE B = 1"), "2");
}

TEST_P(ConnectionConformance, DatesFitTheirColumn) {
  const struct {
    const char* column;
    const char* written;
    FechaHora stored;  // the default for a refusal
  } cases[] = {
      {"Fecha", "'01/03/2024 10:20:29'", {2024, 3, 1, 10, 20}},
      {"Fecha", "'20240301 10:20:29.998'", {2024, 3, 1, 10, 20}},
      {"Fecha", "'20240301 10:20:29.999'", {2024, 3, 1, 10, 21}},
      {"Fecha", "'31/12/2024 23:59:30'", {2025, 1, 1}},
      {"Fecha", "'01/01/1900'", {1900, 1, 1}},
      {"Fecha", "'31/12/1899'", {}},
      {"Fecha", "'20790606 23:59:29'", {2079, 6, 6, 23, 59}},
      {"Fecha", "'06/06/2079 23:59:30'", {}},
      {"Fecha", "CAST('20790607' AS datetime)", {}},
      {"Fecha", "0", {1900, 1, 1}},
      {"Hora", "'31/12/9999 23:59:59'", {9999, 12, 31, 23, 59, 59}},
      {"Hora", "'01/01/1753'", {1753, 1, 1}},
      {"Hora", "'31/12/1752'", {}},
  };
  for (const auto& c : cases) {
    db_->Execute("DELETE FROM Notas");
    const bool refused = c.stored == FechaHora{};
    EXPECT_EQ(ErrorOf([&] { Insert(c.column, c.written); }), refused ? kErrorDatabase : 0)
        << c.written;
    const auto rows = db_->Open("SELECT " + std::string(c.column) + " FROM Notas");
    EXPECT_EQ(rows->Eof() ? FechaHora{} : rows->Get<FechaHora>(0), c.stored) << c.written;
  }
  EXPECT_EQ(ErrorOf([&] { Count("Fecha < '07/06/2079'"); }), kErrorDatabase);
}

TEST_P(ConnectionConformance, WhatACopyDoesNotFitIsRefused) {
  db_->Execute("CREATE TABLE Corta (Nombre varchar(3) NOT NULL, Total money)");
  Insert("Nombre, Total", "'abcd', 1.5");
  for (const char* sql : {"INSERT INTO Corta SELECT Nombre, Total FROM Notas",
                          "INSERT INTO Corta (Total) SELECT Total t FROM Notas",
                          "INSERT INTO Corta (Nombre) SELECT 'x' UNION SELECT Nombre FROM Notas"}) {
    EXPECT_EQ(ErrorOf([&] { db_->Execute(sql); }), kErrorDatabase) << sql;
  }
  EXPECT_EQ(db_->Execute("INSERT INTO Corta (Nombre, Total) SELECT 'x' AS n, Total t FROM Notas"),
            1);
  EXPECT_EQ(ErrorOf([&] { db_->Execute("UPDATE Corta SET Nombre = Nombre + 'yzv'"); }),
            kErrorDatabase);
  EXPECT_EQ(All("SELECT Nombre FROM Corta"), "x");
}

TEST_P(ConnectionConformance, SettingsAreHonouredOrRefused) {
  for (const char* sql : {"SET NOCOUNT ON", "set dateformat DMY", "SET LANGUAGE Español;"}) {
    EXPECT_EQ(ErrorOf([&] { db_->Execute(sql); }), 0) << sql;
  }
  EXPECT_EQ(ErrorOf([&] { db_->Execute("SET NADA ON"); }), kErrorDatabase);
}

TEST_P(ConnectionConformance, ExpressionsGiveTheirValue) {
  const std::pair<const char*, const char*> cases[] = {
      {"ROUND(1.0005, 3)", "1.001"},
      {"ROUND(-1.0005, 3)", "-1.001"},
      {"ROUND(2.5 * 3 - 2.5 * 3 * 10 / 100, 3)", "6.75"},
      {"ROUND(1.00449999, 2)", "1"},
      {"ROUND(9.995, 2)", "10"},
      {"ROUND(0.0004, 3)", "0"},
      {"ROUND(0.5, 0)", "1"},
      {"ROUND(1250.0, -2)", "1300"},
      {"ROUND(NULL, 2)", "NULL"},
      {"CONVERT(int, '12')", "12"},
      {"CAST('12.34567' AS money)", "12.3457"},
      {"CAST(1.005 AS decimal(9, 2))", "1.01"},
      {"CONVERT(varchar(3), 'abcdef')", "abc"},
      {"CONVERT(varchar(5), 'abcdef')", "abcde"},
      {"CAST(2.50 AS varchar(10))", "2.5"},
      {"LEN('añ ')", "2"},
      {"00123456789012345678901234", "123456789012345678901234"},
      {"999999999999999999", "999999999999999999"}};
  for (const auto& [expression, value] : cases) {
    EXPECT_EQ(All("SELECT " + std::string(expression)), value) << expression;
  }
  EXPECT_EQ(ErrorOf([&] { db_->Open("SELECT CAST('31/02/2024' AS datetime)"); }), kErrorDatabase);
}

TEST_P(ConnectionConformance, AnEmptyBlobEqualsAnEmptyText) {
  Insert("Datos", "CONVERT(varbinary(MAX),'')");
  Insert("Datos", "0x0A00FF");
  EXPECT_EQ(Count("Datos = ''"), 1);
  EXPECT_EQ(Count("Datos <> ''"), 1);
  auto rows = db_->Open("SELECT Datos FROM Notas WHERE Datos <> ''");
  EXPECT_EQ(rows->Get<Bytes>(0), (Bytes{std::byte{0x0A}, std::byte{0}, std::byte{0xFF}}));
}

TEST_P(ConnectionConformance, BlobsGoIntoTheFirstRow) {
  const Bytes bytes = {std::byte{0xFF}, std::byte{0}, std::byte{'\''}};
  for (const char* serie : {"1", "2", "2"}) Insert("Serie", serie);
  // Of rows that are equal in all that is asked for, the first one that was inserted.
  const std::string segundas =
      "SELECT Peso, datos FROM Notas WHERE Serie =2 AND ISNULL(Nombre,'') =''";
  const auto stored = [&](int id) {
    return db_->Open("SELECT Datos FROM Notas WHERE ID = " + std::to_string(id));
  };
  const auto open = db_->Open("SELECT Serie FROM Notas");
  db_->UpdateBlob(segundas, "DATOS", bytes);
  EXPECT_TRUE(stored(1)->IsNull(0));
  EXPECT_EQ(stored(2)->Get<Bytes>(0), bytes);
  EXPECT_TRUE(stored(3)->IsNull(0));
  db_->UpdateBlob("SELECT Datos FROM Notas ORDER BY ID DESC", "Datos", {});
  EXPECT_EQ(stored(3)->Get<Bytes>(0), Bytes{});
  db_->BeginTrans();
  db_->UpdateBlob(segundas, "Datos", Bytes(1));
  db_->RollbackTrans();
  EXPECT_EQ(stored(2)->Get<Bytes>(0), bytes);
}

TEST_P(ConnectionConformance, BlobsNeedARowAndAField) {
  Insert("Serie", "1");
  const auto error = [&](const char* sql, const char* field) {
    return ErrorOf([&] { db_->UpdateBlob(sql, field, Bytes(1)); });
  };
  EXPECT_NE(error("SELECT Datos FROM Notas WHERE Serie = 2", "Datos"), 0);
  EXPECT_EQ(error("SELECT Serie FROM Notas", "Datos"), kErrorItemNotFound);
  for (const char* sql :
       {"SELECT Datos FROM Nada", "UPDATE Notas SET Datos = ''", "SELECT DISTINCT Datos FROM Notas",
        "SELECT COUNT(Datos) AS Datos FROM Notas", "SELECT Datos FROM (SELECT Datos FROM Notas) T",
        "SELECT n.Datos FROM Notas n INNER JOIN Notas m ON m.ID = n.ID"}) {
    EXPECT_EQ(error(sql, "Datos"), kErrorDatabase) << sql;
  }
  EXPECT_EQ(Count("Datos IS NULL"), 1);
}

TEST_P(ConnectionConformance, FieldsAreFoundWithoutCaseAndTheFirstOfEquals) {
  auto rows = db_->Open("SELECT 1 AS Uno, 2 AS DOS, 3 AS uno, 4 AS Ñu");
  EXPECT_EQ(rows->Field("UNO"), 0);
  EXPECT_EQ(rows->Field("dos"), 1);
  EXPECT_EQ(rows->Field("ñU"), 3);
  EXPECT_EQ(ErrorOf([&] { rows->Field("tres"); }), kErrorItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows->IsNull(4); }), kErrorItemNotFound);
}

TEST_P(ConnectionConformance, NullsRaiseOrAreEmpty) {
  Insert("Serie", "NULL");
  auto rows = db_->Open("SELECT Nombre, Total, Fecha, Serie, Datos FROM Notas");
  EXPECT_TRUE(rows->IsNull("Serie"));
  EXPECT_EQ(ErrorOf([&] { rows->Get<std::string>("Nombre"); }), kErrorInvalidNull);
  EXPECT_EQ(ErrorOf([&] { rows->Get<std::int16_t>("Serie"); }), kErrorInvalidNull);
  EXPECT_EQ(rows->GetOrEmpty<std::string>("Nombre"), "");
  EXPECT_EQ(rows->GetOrEmpty<Currency>("Total"), Currency{});
  EXPECT_EQ(rows->GetOrEmpty<FechaHora>("Fecha"), FechaHora{});
  EXPECT_EQ(rows->GetOrEmpty<Bytes>("Datos"), Bytes{});
}

TEST_P(ConnectionConformance, IntegersAreChecked) {
  const struct {
    const char* value;
    int error;
    int expected;
  } cases[] = {{"32767", 0, 32767},
               {"32768", kErrorOverflow, 0},
               {"-32768", 0, -32768},
               {"-32769", kErrorOverflow, 0},
               {"2.5", 0, 2},
               {"3.5", 0, 4},
               {"-2.5", 0, -2},
               {"32767.5", kErrorOverflow, 0},
               {"1e30", kErrorOverflow, 0},
               {"' 12 '", 0, 12},
               {"'12.5'", 0, 12},
               {"'doce'", kErrorTypeMismatch, 0},
               {"''", kErrorTypeMismatch, 0},
               {"0x01", kErrorTypeMismatch, 0}};
  for (const auto& c : cases) {
    auto rows = db_->Open("SELECT " + std::string(c.value));
    int value = 0;
    EXPECT_EQ(ErrorOf([&] { value = rows->Get<std::int16_t>(0); }), c.error) << c.value;
    EXPECT_EQ(value, c.expected) << c.value;
  }
  EXPECT_EQ(db_->Open("SELECT 5000000000")->Get<std::int64_t>(0), 5000000000);
  EXPECT_EQ(ErrorOf([&] { db_->Open("SELECT 5000000000")->Get<std::int32_t>(0); }), kErrorOverflow);
}

TEST_P(ConnectionConformance, ValuesAreReadAsOtherTypes) {
  auto rows =
      db_->Open("SELECT 12 AS i, 12.5 AS r, 'x' AS t, 'TRUE' AS si, 0 AS cero, '3.75' AS n");
  EXPECT_EQ(rows->Get<std::string>("i"), "12");
  EXPECT_EQ(rows->Get<std::string>("r"), "12.5");
  EXPECT_EQ(rows->Get<std::string_view>("i"), "12");
  EXPECT_DOUBLE_EQ(rows->Get<double>("n"), 3.75);
  EXPECT_EQ(rows->Get<Currency>("n").Units(), 37500);
  EXPECT_EQ(rows->Get<Currency>("i").Units(), 120000);
  EXPECT_TRUE(rows->Get<bool>("si"));
  EXPECT_TRUE(rows->Get<bool>("r"));
  EXPECT_FALSE(rows->Get<bool>("cero"));
  for (const auto& read : std::vector<std::function<void()>>{
           [&] { rows->Get<double>("t"); }, [&] { rows->Get<bool>("t"); },
           [&] { rows->Get<Currency>("t"); }, [&] { rows->Get<FechaHora>("t"); },
           [&] { rows->Get<FechaHora>("i"); }, [&] { rows->Get<Bytes>("i"); }}) {
    EXPECT_EQ(ErrorOf(read), kErrorTypeMismatch);
  }
}

TEST_P(ConnectionConformance, RealsAsTextHaveFifteenDigits) {
  const std::pair<const char*, const char*> cases[] = {{"0.1 + 0.2", "0.3"},
                                                       {"1.0 / 3.0", "0.333333333333333"},
                                                       {"2.0", "2"},
                                                       {"-0.0001", "-0.0001"},
                                                       {"123456789.125", "123456789.125"},
                                                       {"1000000.0 * 1000000.0", "1000000000000"},
                                                       {"1e300", "1E+300"},
                                                       {"0.0", "0"}};
  for (const auto& [expression, text] : cases) {
    EXPECT_EQ(All("SELECT " + std::string(expression)), text) << expression;
  }
}

TEST_P(ConnectionConformance, RecordsetsOfTheSameShapeStayOpenTogether) {
  for (const char* serie : {"1", "2", "3"}) Insert("Serie", serie);
  std::string seen;
  auto outer = db_->Open("SELECT Serie FROM Notas WHERE Serie > 0 ORDER BY Serie");
  for (; !outer->Eof(); outer->MoveNext()) {
    auto inner = db_->Open("SELECT Serie FROM Notas WHERE Serie > 1 ORDER BY Serie");
    for (; !inner->Eof(); inner->MoveNext()) {
      auto third = db_->Open("SELECT Serie FROM Notas WHERE Serie > 2 ORDER BY Serie");
      seen += outer->Get<std::string>(0) + inner->Get<std::string>(0) + third->Get<std::string>(0);
      seen += ' ';
    }
  }
  EXPECT_EQ(seen, "123 133 223 233 323 333 ");
}

TEST_P(ConnectionConformance, RecordsetsStayOpenWhileStatementsRun) {
  db_->Execute("CREATE TABLE Otra (Valor [int])");
  for (const char* serie : {"1", "2", "3"}) Insert("Serie", serie);
  auto rows = db_->Open("SELECT Serie FROM Notas ORDER BY Serie");
  for (; !rows->Eof(); rows->MoveNext()) {
    db_->BeginTrans();
    db_->Execute("INSERT INTO Otra (Valor) VALUES (" + rows->Get<std::string>("Serie") + ")");
    if (rows->Get<std::int32_t>(0) == 2) {
      db_->RollbackTrans();
    } else {
      db_->CommitTrans();
    }
  }
  EXPECT_EQ(All("SELECT Valor FROM Otra ORDER BY Valor"), "1|3");
}

TEST_P(ConnectionConformance, TheTextOfAnOpenStatementMayGo) {
  for (const char* name : {"'a'", "'b'", "'c'"}) Insert("Nombre", name);
  std::string sql = "SELECT Nombre FROM Notas WHERE Nombre <> 'b' ORDER BY ID";
  auto rows = db_->Open(sql);
  sql.replace(sql.find("'b'"), 3, "'c'");
  rows->MoveNext();
  EXPECT_EQ(rows->Get<std::string>(0), "c");
}

TEST_P(ConnectionConformance, ClosedRecordsetsHoldNoRows) {
  Insert("Serie", "1");
  auto rows = db_->Open("SELECT Serie FROM Notas");
  rows->Close();
  rows->Close();
  EXPECT_TRUE(rows->Eof());
  EXPECT_NE(ErrorOf([&] { rows->Get<int>(0); }), 0);
  EXPECT_NE(ErrorOf([&] { rows->MoveNext(); }), 0);
  auto none = db_->Open("SELECT Serie FROM Notas WHERE Serie = 2");
  EXPECT_TRUE(none->Eof());
  EXPECT_EQ(none->Field("serie"), 0);
  EXPECT_NE(ErrorOf([&] { none->IsNull(0); }), 0);
}

TEST_P(ConnectionConformance, ExecuteGivesTheRowsMatched) {
  for (int i = 0; i < 3; ++i) Insert("Serie", "5");
  EXPECT_EQ(db_->Execute("UPDATE Notas SET Hora = Hora WHERE Serie = 5"), 3);
  EXPECT_EQ(db_->Execute("UPDATE Notas SET Serie = 6 WHERE ID = 1"), 1);
  EXPECT_EQ(db_->Execute("UPDATE Notas SET Serie = 6 WHERE ID = 99"), 0);
  EXPECT_EQ(db_->Execute("DELETE FROM Notas WHERE Serie = 5"), 2);
  EXPECT_EQ(db_->Execute("INSERT INTO Notas (Serie) VALUES (1), (2)"), 2);
}

TEST_P(ConnectionConformance, RollbackUndoesAndCommitKeeps) {
  db_->BeginTrans();
  Insert("Serie", "1");
  db_->RollbackTrans();
  EXPECT_EQ(Count("1 = 1"), 0);
  db_->BeginTrans();
  Insert("Serie", "2");
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO NoExiste (a) VALUES (1)"); }), kErrorDatabase);
  Insert("Serie", "3");
  db_->CommitTrans();
  EXPECT_EQ(All("SELECT Serie FROM Notas ORDER BY Serie"), "2|3");
  EXPECT_EQ(ErrorOf([&] { db_->CommitTrans(); }), kErrorDatabase);
  EXPECT_EQ(ErrorOf([&] { db_->RollbackTrans(); }), kErrorDatabase);
  db_->BeginTrans();
  EXPECT_EQ(ErrorOf([&] { db_->BeginTrans(); }), kErrorDatabase);
}

TEST_P(ConnectionConformance, RejectedStatementsChangeNothing) {
  db_->Execute(
      "CREATE TABLE Clave (Codigo [int] NOT NULL, CONSTRAINT PK_Clave PRIMARY KEY (Codigo))");
  db_->Execute("INSERT INTO Clave (Codigo) VALUES (2)");
  for (const char* sql :
       {"INSERT INTO Clave (Codigo) VALUES (1), (2)", "INSERT INTO Clave (Codigo) VALUES (NULL)",
        "INSERT INTO Clave (Nada) VALUES (1)", "UPDATE Clave SET Codigo = 'x'", "SELEC 1",
        "INSERT INTO Clave (Codigo) VALUES ('sin cerrar)", "", "UPDATE Clave SET Codigo = (1"}) {
    EXPECT_EQ(ErrorOf([&] { db_->Execute(sql); }), kErrorDatabase) << sql;
  }
  EXPECT_EQ(All("SELECT Codigo FROM Clave"), "2");
}

TEST_P(ConnectionConformance, IdentityIsGivenBack) {
  db_->Execute("INSERT INTO Notas VALUES ('a', '1', '', '', 1, 2, 3, 1, 0x00)");
  Insert("Nombre", "'b'");
  EXPECT_EQ(All("SELECT @@IDENTITY AS ID"), "2");
  EXPECT_EQ(All("SELECT SCOPE_IDENTITY()"), "2");
  db_->Execute("DELETE FROM Notas");
  Insert("Nombre", "'c'");
  EXPECT_EQ(All("SELECT ID FROM Notas"), "3");
}

TEST_P(ConnectionConformance, TemporaryTablesComeAndGo) {
  for (int run = 0; run < 2; ++run) {
    db_->Execute(
        "CREATE TABLE #EDI_Albaran815 (Fichero [varchar](100), Unidades [money] NOT NULL DEFAULT"
        " ((0)), LoteCaducidad [smalldatetime] NOT NULL DEFAULT (''), ID [int] IDENTITY(1,1))");
    db_->Execute("INSERT INTO #EDI_Albaran815 (Fichero) VALUES ('f')");
    db_->Execute("UPDATE #EDI_Albaran815 SET Unidades = Unidades + 2.5 WHERE Fichero ='F'");
    EXPECT_EQ(All("SELECT a.Unidades FROM #EDI_Albaran815 a WHERE a.LoteCaducidad = '1/1/1900'"),
              "2.5");
    db_->Execute("DROP TABLE #EDI_Albaran815");
  }
}

TEST_P(ConnectionConformance, FullOuterJoinsFindWhatHasNoPartner) {
  db_->Execute("CREATE TABLE Lineas (Doc_Num [varchar](30))");
  db_->Execute("INSERT INTO Lineas (Doc_Num) VALUES ('a '), ('c')");
  for (const char* text : {"'A'", "'b'"}) Insert("Doc_Num", text);
  EXPECT_EQ(All("SELECT COUNT(*) AS Existe FROM Notas cli FULL OUTER JOIN  Lineas lin"
                " ON lin.Doc_Num = cli.Doc_Num WHERE cli.Doc_Num IS NULL OR lin.Doc_Num IS NULL"),
            "2");
}

TEST_P(ConnectionConformance, TopTakesTheFirstRows) {
  for (const char* serie : {"3", "1", "2"}) Insert("Serie", serie);
  EXPECT_EQ(All("SELECT TOP 1 Serie FROM Notas ORDER BY Serie"), "1");
  EXPECT_EQ(All("SELECT DISTINCT TOP (2) Serie FROM Notas ORDER BY 1 DESC"), "3|2");
  EXPECT_EQ(All("SELECT Serie FROM Notas WHERE Serie = (SELECT TOP 1 Serie FROM Notas"
                " WHERE Serie > 1 ORDER BY Serie) ORDER BY Serie"),
            "2");
}

TEST_P(ConnectionConformance, TextsAreJoinedWithPlus) {
  Insert("Nombre", "'a'");
  EXPECT_EQ(All("SELECT 'x' + Nombre + 'y' FROM Notas"), "xay");
  EXPECT_EQ(All("SELECT Nombre + Nombre FROM Notas"), "aa");
  EXPECT_EQ(All("SELECT 1 + 2 + ID FROM Notas"), "4");
}

}  // namespace kvraedi::conformance
