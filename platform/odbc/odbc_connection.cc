#include "platform/odbc/odbc_connection.h"

#include <algorithm>

#include "platform/odbc/odbc_recordset.h"
#include "platform/odbc/opening.h"
#include "platform/odbc/row_update.h"
#include "platform/odbc/statement.h"

namespace kvraedi {

using namespace odbc;

namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;

std::int64_t Run(Session& session, std::string_view sql) {
  Statement statement(session);
  statement.Run(sql);
  return statement.Drain();
}

void Send(Statement& statement, std::span<const std::byte> bytes) {
  for (std::size_t done = 0; done < bytes.size(); done += kPiece) {
    const auto piece = bytes.subspan(done, std::min(kPiece, bytes.size() - done));
    statement.Check(
        SQLPutData(statement.Get(), AsPointer(piece.data()), static_cast<SQLLEN>(piece.size())));
  }
}

/// Runs a statement with one parameter, whose bytes it sends in pieces.
std::int64_t RunWithBytes(Session& session, const std::string& sql,
                          std::span<const std::byte> bytes) {
  Statement statement(session);
  SQLLEN size = SQL_LEN_DATA_AT_EXEC(static_cast<SQLLEN>(bytes.size()));
  statement.Check(SQLBindParameter(statement.Get(), 1, SQL_PARAM_INPUT, SQL_C_BINARY,
                                   SQL_LONGVARBINARY, bytes.size(), 0, &size, 0, &size));
  SQLRETURN code = statement.Start(sql);
  SQLPOINTER which = nullptr;
  if (code == SQL_NEED_DATA) code = SQLParamData(statement.Get(), &which);
  if (code == SQL_NEED_DATA) {
    Send(statement, bytes);
    code = SQLParamData(statement.Get(), &which);
  }
  statement.Check(code);
  return statement.Drain();
}

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connection_string, const OdbcOptions& options)
    : session_(std::make_shared<Session>(connection_string, options)) {
  if (options.transact_sql) PrepareServer(session_);
}

OdbcConnection::~OdbcConnection() = default;

std::unique_ptr<Recordset> OdbcConnection::Open(std::string_view sql) {
  return std::make_unique<OdbcRecordset>(session_, sql);
}

std::int64_t OdbcConnection::Execute(std::string_view sql) {
  if (sql.find_first_not_of(" \t\r\n") == std::string_view::npos) Throw("La sentencia está vacía");
  session_->Ready();
  return Run(*session_, sql);
}

void OdbcConnection::UpdateBlob(std::string_view sql, std::string_view field,
                                std::span<const std::byte> bytes) {
  if (!session_->Options().transact_sql) {
    Throw("Los datos binarios sólo se guardan en servidores de T-SQL");
  }
  const std::string update = FirstRowUpdate(sql, field, bytes.empty() ? "0x" : "?");
  session_->Ready();
  const std::int64_t changed =
      bytes.empty() ? Run(*session_, update) : RunWithBytes(*session_, update, bytes);
  if (changed == 0) Throw("No hay registro actual");
}

void OdbcConnection::BeginTrans() {
  if (session_->InTransaction()) Throw("Ya hay una transacción abierta");
  session_->Ready();
  Run(*session_, "BEGIN TRANSACTION");
  session_->InTransaction(true);
}

void OdbcConnection::CommitTrans() {
  if (!session_->InTransaction()) Throw("No hay ninguna transacción abierta");
  session_->Ready();
  Run(*session_, "COMMIT TRANSACTION");
  session_->InTransaction(false);
}

void OdbcConnection::RollbackTrans() {
  if (!session_->InTransaction()) Throw("No hay ninguna transacción abierta");
  session_->InTransaction(false);
  session_->ReadyToEnd();
  Run(*session_,
      session_->Options().transact_sql ? "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION" : "ROLLBACK");
}

std::string OdbcConnection::Database() const { return session_->Database(); }

}  // namespace kvraedi
