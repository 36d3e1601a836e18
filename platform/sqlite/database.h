#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/sqlite/collations.h"
#include "platform/sqlite/sqlite_connection.h"

struct sqlite3_stmt;

namespace kvraedi::sqlite {

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const;
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, Finalizer>;

/// An open handle and what lives exactly as long as it. Every failure is an Error with a
/// Spanish text.
class Database {
 public:
  Database(const std::string& path, const SqliteOptions& options);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  sqlite3* Handle() const { return handle_; }

  /// `lasting` statements are kept; the others are run once.
  StatementPtr Prepare(std::string_view sql, bool lasting = false);
  /// True when it stands on a row. On failure, also when dates were compared that are none, the
  /// statement is reset.
  bool Step(sqlite3_stmt* statement);
  void Run(std::string_view sql);
  /// Runs one or more statements: all of them or, when one fails, none.
  void RunAll(std::string_view sql);
  /// Raises unless `result`, of the call just made, is SQLITE_OK.
  void Check(int result) const;
  bool InTransaction() const;

 private:
  [[noreturn]] void ThrowLast() const;

  sqlite3* handle_ = nullptr;
  DateFault fault_;
};

}  // namespace kvraedi::sqlite
