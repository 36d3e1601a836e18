#include "tests/platform/conexion/connection_conformance.h"

#include <algorithm>
#include <functional>
#include <sstream>
#include <utility>
#include <vector>

#include "tests/apoyo/guion.h"

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

constexpr const char* kNotas =
    "CREATE TABLE Notas (ID [int] IDENTITY(1,1), Nombre [varchar](40), Doc_Num [varchar](30),"
    " Fecha [smalldatetime], Hora [datetime], Total [money], Peso [float],"
    " Serie [smallint], Activo [bit] NOT NULL DEFAULT ((0)), Datos [varbinary](MAX))";

/// The first column of all rows, joined by "|"; nulls are "NULL".
std::string AllRows(Connection& db, const std::string& sql) {
  std::string all;
  for (auto rows = db.Open(sql); !rows->Eof(); rows->MoveNext()) {
    if (!all.empty()) all += '|';
    all += rows->IsNull(0) ? "NULL" : rows->Get<std::string>(0);
  }
  return all;
}

/// The error number of a statement, 0 when it is taken.
std::int32_t ErrorOfStatement(Connection& db, const std::string& sql) {
  return ErrorOf([&] { sql.starts_with("SELECT") ? db.Open(sql), 0 : db.Execute(sql); });
}

/// A value into a column of Tipos, by insertion and by change: it is kept so, or refused ("").
void ExpectKept(Connection& db, const std::string& column, const std::string& value,
                const std::string& kept) {
  const std::int32_t error = kept.empty() ? kErrorDatabase : 0;
  const std::string query = "SELECT " + column + " FROM Tipos";
  db.Execute("DELETE FROM Tipos");
  EXPECT_EQ(ErrorOfStatement(db, "INSERT INTO Tipos (" + column + ") VALUES (" + value + ")"),
            error);
  EXPECT_EQ(AllRows(db, query), kept);
  if (kept.empty()) db.Execute("INSERT INTO Tipos (" + column + ") VALUES (NULL)");
  EXPECT_EQ(ErrorOfStatement(db, "UPDATE Tipos SET " + column + " = " + value), error);
  EXPECT_EQ(AllRows(db, query), kept.empty() ? "NULL" : kept);
}

void ExpectRefused(Connection& db, const std::string& sql, const std::string& part) {
  try {
    sql.starts_with("SELECT") ? db.Open(sql), 0 : db.Execute(sql);
    ADD_FAILURE() << "was not refused";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kErrorDatabase);
    EXPECT_NE(error.Description().find(part), std::string::npos) << error.Description();
  }
}

void ExpectLine(Connection& db, const std::string& line) {
  SCOPED_TRACE(line);
  const std::string rest = line.substr(std::min<std::size_t>(2, line.size()));
  const auto arrow = rest.rfind("=>");
  const std::string before = rest.substr(0, arrow == std::string::npos ? arrow : arrow - 1);
  const std::string after =
      arrow == std::string::npos ? "" : rest.substr(std::min(arrow + 3, rest.size()));
  const auto blank = rest.find(' ');
  switch (line.front()) {
    case '?':
      EXPECT_EQ(AllRows(db, before), after);
      return;
    case '#':
      EXPECT_EQ(db.Execute(rest.substr(blank + 1)), std::stoi(rest));
      return;
    case '!':
      return ExpectRefused(db, before, after);
    case '~':
      return ExpectKept(db, rest.substr(0, blank), before.substr(blank + 1), after);
    default:
      db.Execute(line);
  }
}

}  // namespace

std::vector<Promise> Promises(const std::string& path) {
  std::istringstream file(Guion(path));
  std::vector<Promise> promises;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("== ")) {
      promises.push_back({line.substr(3), {}});
    } else if (!line.empty() && !line.starts_with("--")) {
      promises.back().lines.push_back(line);
    }
  }
  return promises;
}

TEST_P(DatabasePromises, AreKept) {
  const auto& [adapter, promise] = GetParam();
  const auto db = adapter.open();
  db->Execute(kNotas);
  for (const std::string& line : promise.lines) ExpectLine(*db, line);
}

void ConnectionConformance::SetUp() {
  const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
  const auto missing = GetParam().cannot.find(test.substr(0, test.find('/')));
  if (missing != GetParam().cannot.end()) GTEST_SKIP() << missing->second;
  db_ = GetParam().open();
  db_->Execute(kNotas);
}

void ConnectionConformance::Insert(const std::string& column, const std::string& value) {
  db_->Execute("INSERT INTO Notas (" + column + ") VALUES (" + value + ")");
}

std::string ConnectionConformance::All(const std::string& sql) { return AllRows(*db_, sql); }

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

TEST_P(ConnectionConformance, TheClockIsThePorts) {
  Insert("Hora", "GETDATE()");
  EXPECT_EQ(db_->Open("SELECT Hora FROM Notas")->Get<FechaHora>(0),
            (FechaHora{2024, 6, 5, 7, 8, 9}));
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

}  // namespace kvraedi::conformance
