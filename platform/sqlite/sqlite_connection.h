#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"

struct sqlite3;

namespace kvraedi {

/// What a commit survives.
enum class Durability : std::uint8_t {
  kFull,  ///< rollback journal, full synchronisation: also a power cut
  kWal,   ///< write-ahead log, synchronised at checkpoints: a crash; a power cut may lose the last
          ///< commits, never damage the file. Readers do not wait for a writer.
  kNone,  ///< journal in memory, no synchronisation: for tests and throw-away files
};

struct SqliteOptions {
  bool create = false;  ///< make the file when it does not exist; otherwise that is an error
  Durability durability = Durability::kFull;
  std::function<FechaHora()> clock;     ///< for GETDATE(); the system's local time when empty
  std::size_t cached_statements = 128;  ///< bound of the statement cache
};

/// A database file of SQLite that takes the T-SQL text of the component and, where that can be told
/// from outside, answers as SQL Server does: texts compare without regard to case and trailing
/// blanks, dates compare as dates in every form that FechaHora::Parse reads, bare numbers compare
/// with text columns as numbers, money is exact to four decimals when read. The README
/// of this folder tells what statements may use and how tables are made.
///
/// Failures raise Error(kErrorDatabase, "SQLite", ...). One thread.
class SqliteConnection : public Connection {
 public:
  /// Opens the file at `path` (UTF-8; ":memory:" for one in memory).
  explicit SqliteConnection(const std::string& path, const SqliteOptions& options = {});
  ~SqliteConnection() override;
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;

  std::unique_ptr<Recordset> Open(std::string_view sql) override;
  std::int64_t Execute(std::string_view sql) override;
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  /// Runs a script of T-SQL statements, separated by ";" or by lines that say GO: all of it or,
  /// when one fails, nothing. Inside a transaction it belongs to that transaction.
  void Run(std::string_view script);

  /// Closes the file, once no recordset needs it any more; every later call but Close raises.
  void Close();

  /// The open handle, for bulk loading and triggers (in SQLite's own dialect). It belongs to the
  /// connection. Tables that are made or changed through it need ForgetSchema() afterwards, and
  /// dates must be written as FechaHora::ToIso does.
  sqlite3* Handle() const;
  void ForgetSchema();

 private:
  class Impl;
  Impl& Opened() const;

  std::unique_ptr<Impl> impl_;
};

/// Gives a handle that a program opened itself the collations and functions that the files of a
/// SqliteConnection need.
void RegisterDialect(sqlite3* db, std::function<FechaHora()> clock = {});

}  // namespace kvraedi
