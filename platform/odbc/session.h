#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/odbc/connection_secrets.h"
#include "platform/odbc/diagnostics.h"
#include "platform/odbc/handle.h"
#include "platform/odbc/odbc_options.h"

namespace kvraedi::odbc {

[[noreturn]] void Throw(const std::string& description);

/// Who holds the wire: a query whose rows are not all read.
class Holder {
 public:
  virtual ~Holder() = default;
  /// Reads what is left, so that another statement can run. Raises nothing: what fails is told
  /// when the rows that failed are asked for.
  virtual void ReadAhead() = 0;
};

/// The open connection, shared by its recordsets: handles, what is known of the server's end of it,
/// and the one statement that may be active at a time.
class Session {
 public:
  Session(std::string_view connection_string, const OdbcOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  const OdbcOptions& Options() const { return options_; }
  SQLHANDLE Handle() const { return connection_.Get(); }

  /// Makes the wire free for a statement; raises when the connection is lost or when the server
  /// has ended the transaction by itself.
  void Ready();
  /// The same for the statement that ends a transaction, which may be over already.
  void ReadyToEnd();
  void Hold(Holder* holder) { holder_ = holder; }
  void Release(const Holder* holder);

  /// Raises what the driver says of a handle, all of it.
  [[noreturn]] void Fail(SQLSMALLINT type, SQLHANDLE handle);
  void Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle) {
    if (!SQL_SUCCEEDED(code)) Fail(type, handle);
  }

  bool InTransaction() const { return in_transaction_; }
  void InTransaction(bool open);
  /// The name of the database in use.
  std::string Database();

 private:
  void Open(std::string_view connection_string);
  bool IsDead() const;
  std::string Explained(const std::vector<Diagnostic>& records, Trouble trouble) const;
  bool ServerHasTransaction();

  OdbcOptions options_;
  ConnectionSecrets secrets_;
  EnvironmentHandle environment_;
  ConnectionHandle connection_;
  bool connected_ = false;
  Holder* holder_ = nullptr;
  std::string lost_;  // why, once it is
  bool in_transaction_ = false;
  bool in_doubt_ = false;  // a statement of the transaction failed
};

}  // namespace kvraedi::odbc
