#include "platform/odbc/opening.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "kvraedi/error.h"
#include "platform/odbc/odbc_recordset.h"
#include "platform/odbc/statement.h"

namespace kvraedi::odbc {
namespace {

void Run(Session& session, const std::string& sql) {
  session.Ready();
  Statement statement(session);
  statement.Run(sql);
  statement.Drain();
}

/// What the server makes of '02/01/2000'; nothing when it makes no date of it.
std::optional<FechaHora> SecondOfJanuary(const std::shared_ptr<Session>& session) {
  OdbcRecordset rows(session, "SELECT CAST('02/01/2000' AS datetime) AS Fecha");
  try {
    return rows.Get<FechaHora>("Fecha");
  } catch (const Error&) {
    return std::nullopt;
  }
}

void ProveDates(const std::shared_ptr<Session>& session) {
  const auto date = SecondOfJanuary(session);
  if (date == FechaHora{2000, 1, 2}) return;
  Throw("El servidor no lee las fechas como día/mes/año: entiende '02/01/2000' como " +
        (date ? date->ToIso() : "otra cosa") +
        ", aunque se le ha enviado SET DATEFORMAT dmy. Cambie el idioma o el formato de fecha del "
        "usuario con el que se conecta (por ejemplo, ALTER LOGIN ... WITH DEFAULT_LANGUAGE = "
        "Spanish).");
}

void ProveTemporaryTables(Session& session) {
  constexpr const char* kTable = "#kvraedi_apertura";
  const std::string table = kTable;
  try {
    Run(session, "CREATE TABLE " + table +
                     " (Temporal varchar(10), Propio varchar(10) COLLATE DATABASE_DEFAULT)");
    Run(session, "SELECT COUNT(*) FROM " + table + " WHERE Temporal = Propio");
    Run(session, "DROP TABLE " + table);
  } catch (const Error& error) {
    Throw(
        "Los textos de las tablas temporales no se pueden comparar con los de la base de datos. "
        "La intercalación de tempdb (la del servidor) debe ser la de la base de datos: cambie "
        "una de las dos.\n" +
        error.Description());
  }
}

}  // namespace

void PrepareServer(const std::shared_ptr<Session>& session) {
  // A driver may cut long values, and some servers know only part of these settings: each goes
  // alone, and what counts is proved.
  const std::string wait = std::to_string(session->Options().lock_wait.count());
  for (const std::string& setting : {std::string("SET DATEFORMAT dmy"), "SET LOCK_TIMEOUT " + wait,
                                     std::string("SET TEXTSIZE 2147483647")}) {
    Run(*session, setting);
  }
  ProveDates(session);
  ProveTemporaryTables(*session);
}

}  // namespace kvraedi::odbc
