#include "platform/sqlite/database.h"

#include <sqlite3.h>

#include "kvraedi/error.h"
#include "platform/sqlite/functions.h"
#include "platform/sqlite/literal.h"
#include "platform/sqlite/spanish_errors.h"

namespace kvraedi::sqlite {
namespace {

constexpr int kBusyMilliseconds = 5000;

const char* SynchronousOf(Durability durability) {
  switch (durability) {
    case Durability::kWal:
      return "PRAGMA synchronous=NORMAL";
    case Durability::kNone:
      return "PRAGMA synchronous=OFF";
    case Durability::kFull:
      break;
  }
  return "PRAGMA synchronous=FULL";
}

const char* JournalOf(Durability durability) {
  switch (durability) {
    case Durability::kWal:
      return "PRAGMA journal_mode=WAL";
    case Durability::kNone:
      return "PRAGMA journal_mode=MEMORY";
    case Durability::kFull:
      break;
  }
  return "PRAGMA journal_mode=DELETE";
}

}  // namespace

void Finalizer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Database::Database(const std::string& path, const SqliteOptions& options) {
  const int flags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (options.create ? SQLITE_OPEN_CREATE : 0);
  const int result = sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr);
  try {
    Check(result);
    sqlite3_busy_timeout(handle_, kBusyMilliseconds);
    // A name in double quotes that does not exist is an error, not a text.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    AddCollations(handle_, &fault_);
    AddFunctions(handle_, options.clock);
    Run("PRAGMA foreign_keys=OFF; PRAGMA cache_size=-65536");
    Run(SynchronousOf(options.durability));
    // A file that another connection uses keeps its journal, which serves as well.
    const int journal =
        sqlite3_exec(handle_, JournalOf(options.durability), nullptr, nullptr, nullptr);
    if (journal != SQLITE_OK && journal != SQLITE_BUSY) ThrowLast();
  } catch (...) {
    sqlite3_close_v2(handle_);
    throw;
  }
}

Database::~Database() { sqlite3_close_v2(handle_); }

StatementPtr Database::Prepare(std::string_view sql, bool lasting) {
  sqlite3_stmt* statement = nullptr;
  const int result =
      sqlite3_prepare_v3(handle_, sql.data(), static_cast<int>(sql.size()),
                         lasting ? SQLITE_PREPARE_PERSISTENT : 0, &statement, nullptr);
  Check(result);
  return StatementPtr(statement);
}

bool Database::Step(sqlite3_stmt* statement) {
  fault_.raised = false;
  const int result = sqlite3_step(statement);
  if (fault_.raised) {
    sqlite3_reset(statement);
    throw Error(kErrorDatabase, "SQLite", BadDateMessage(fault_.text));
  }
  if (result == SQLITE_ROW || result == SQLITE_DONE) return result == SQLITE_ROW;
  const std::string message =
      SpanishError(sqlite3_extended_errcode(handle_), sqlite3_errmsg(handle_));
  sqlite3_reset(statement);
  throw Error(kErrorDatabase, "SQLite", message);
}

void Database::Run(std::string_view sql) {
  const std::string text(sql);
  Check(sqlite3_exec(handle_, text.c_str(), nullptr, nullptr, nullptr));
}

void Database::RunAll(std::string_view sql) {
  Run("SAVEPOINT kvr");
  try {
    Run(sql);
    Run("RELEASE kvr");
  } catch (const Error&) {
    // Some failures (a full disk) have made SQLite roll back by itself.
    if (InTransaction()) Run("ROLLBACK TO kvr; RELEASE kvr");
    throw;
  }
}

void Database::Check(int result) const {
  if (result != SQLITE_OK) ThrowLast();
}

bool Database::InTransaction() const { return sqlite3_get_autocommit(handle_) == 0; }

void Database::ThrowLast() const {
  throw Error(kErrorDatabase, "SQLite",
              SpanishError(sqlite3_extended_errcode(handle_), sqlite3_errmsg(handle_)));
}

}  // namespace kvraedi::sqlite
