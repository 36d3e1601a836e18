#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "platform/odbc/odbc_options.h"

namespace kvraedi {

namespace odbc {
class Session;
}

/// A database behind an ODBC driver, SQL Server before all. Statements go to the server as they
/// are, in UTF-16, and are never prepared.
///
/// One statement is active at a time. A recordset that is still open when another statement runs
/// is read to its end first: the first eight megabytes of its rows stay in memory, more than that
/// goes to a temporary file. What fails in that reading is raised by the recordset's MoveNext.
///
/// Failures raise Error(kErrorDatabase, "ODBC", ...) with all that the driver says, a line each:
/// text, SQLSTATE and the server's own number; user and password never appear in it. Once the
/// connection is lost every call says so at once. When the server has ended a transaction by
/// itself every statement raises until RollbackTrans, which succeeds. One thread.
class OdbcConnection : public Connection {
 public:
  /// Opens the database of an ODBC connection string (UTF-8). On a server of T-SQL it sets the
  /// order of dates to day, month, year and the wait for locks, and raises when the server does not
  /// read dates so, or when its temporary tables do not compare with the texts of the database.
  explicit OdbcConnection(const std::string& connection_string, const OdbcOptions& options = {});
  ~OdbcConnection() override;
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;

  std::unique_ptr<Recordset> Open(std::string_view sql) override;
  std::int64_t Execute(std::string_view sql) override;
  /// Sends the bytes in pieces, without a copy of its own.
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  /// The name of the database in use.
  std::string Database() const;

 private:
  std::shared_ptr<odbc::Session> session_;  // recordsets share it
};

}  // namespace kvraedi
