#include "platform/sqlite/sqlite_connection.h"

#include <sqlite3.h>

#include <utility>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/database.h"
#include "platform/sqlite/functions.h"
#include "platform/sqlite/keyed_query.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/numbers.h"
#include "platform/sqlite/scalar_functions.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/script.h"
#include "platform/sqlite/settings.h"
#include "platform/sqlite/shape.h"
#include "platform/sqlite/sqlite_recordset.h"
#include "platform/sqlite/statement_cache.h"
#include "platform/sqlite/table_definition.h"
#include "platform/sqlite/translation.h"

namespace kvraedi {

using namespace sqlite;

namespace {

[[noreturn]] void Throw(const char* description) {
  throw Error(kErrorDatabase, "SQLite", description);
}

int BindValue(sqlite3_stmt* statement, int index, const LiteralValue& value, bool copies) {
  const std::string_view text = value.Text();
  const auto owner = copies || value.view.data() == nullptr ? SQLITE_TRANSIENT : SQLITE_STATIC;
  switch (value.type) {
    case LiteralValue::Type::kInteger:
      return sqlite3_bind_int64(statement, index, value.integer);
    case LiteralValue::Type::kReal:
      return sqlite3_bind_double(statement, index, value.real);
    case LiteralValue::Type::kBlob:
      return sqlite3_bind_blob64(statement, index, text.data(), text.size(), owner);
    case LiteralValue::Type::kText:
      break;
  }
  return sqlite3_bind_text64(statement, index, text.data(), text.size(), owner, SQLITE_UTF8);
}

/// Whether a definition is one of a function: "CREATE [OR ALTER] FUNCTION", "ALTER FUNCTION", ...
bool DefinesFunction(const Pieces& pieces) {
  return WordAt(pieces, 1, "FUNCTION") || WordAt(pieces, 3, "FUNCTION");
}

/// Texts that are no numbers come behind all others.
std::string LastAmongNumbers(const Column& column) {
  const std::string name = Quoted(column.name);
  return "SELECT " + name + " FROM " + Quoted(column.table) + " ORDER BY " + name + " COLLATE " +
         std::string(kNumberCollation) + " DESC LIMIT 1";
}

void CheckNumber(Database& database, sqlite3_stmt* guard) {
  if (!database.Step(guard)) {
    sqlite3_reset(guard);
    return;
  }
  const auto* const found = reinterpret_cast<const char*>(sqlite3_column_text(guard, 0));
  const std::string text = found == nullptr ? "" : found;
  sqlite3_reset(guard);
  if (Trimmed(text).empty() || IsPlainNumber(text)) return;
  throw Error(
      kErrorDatabase, "SQLite",
      "Error de conversión al convertir el valor varchar '" + text + "' al tipo de datos numeric.");
}

}  // namespace

class SqliteConnection::Impl {
 public:
  Impl(const std::string& path, const SqliteOptions& options)
      : database_(std::make_shared<Database>(path, options)),
        schema_(*database_),
        functions_(*database_),
        cache_(options.cached_statements) {}

  std::unique_ptr<Recordset> Open(std::string_view sql);
  std::int64_t Execute(std::string_view sql);
  void UpdateBlob(std::string_view sql, std::string_view field, std::span<const std::byte> bytes);
  void Begin();
  void Commit();
  void Rollback();
  void Run(std::string_view script);
  void Forget();
  sqlite3* Handle() const { return database_->Handle(); }

 private:
  Lease Acquire(std::string_view sql);
  void Bind(const Lease& lease, bool copies) const;
  void Define(std::string_view sql);

  std::shared_ptr<Database> database_;  // recordsets share it
  Schema schema_;
  ScalarFunctions functions_;
  StatementCache cache_;
  Shape shape_;  // of the statement at hand
  bool in_transaction_ = false;
  bool has_defined_ = false;  // in the open transaction
};

/// A statement of the shape at hand.
Lease SqliteConnection::Impl::Acquire(std::string_view sql) {
  if (shape_.cacheable) {
    if (auto known = cache_.Find(shape_.key)) return Lease(std::move(known));
  }
  Translation translation = Translate(sql, shape_.literals, schema_, functions_);
  for (const std::string& index : translation.indexes) database_->Run(index);
  auto prepared = std::make_shared<Prepared>();
  prepared->key = shape_.key;
  prepared->slots = std::move(translation.slots);
  for (const Column* column : translation.as_numbers) {
    prepared->guards.push_back(database_->Prepare(LastAmongNumbers(*column), true));
  }
  prepared->statement = database_->Prepare(translation.sql, shape_.cacheable);
  if (shape_.cacheable) cache_.Add(prepared);
  return Lease(std::move(prepared));
}

/// Makes a statement ready to run. `copies` when the parameters must outlive its text.
void SqliteConnection::Impl::Bind(const Lease& lease, bool copies) const {
  for (const StatementPtr& guard : lease.Guards()) CheckNumber(*database_, guard.get());
  int index = 0;
  for (const Slot& slot : lease.Slots()) {
    ++index;
    if (slot.literal == Slot::kColumn) {
      database_->Check(BindColumn(lease.Statement(), index, *slot.beside.stored));
    } else {
      database_->Check(BindValue(lease.Statement(), index,
                                 Evaluate(shape_.literals[slot.literal], slot.beside), copies));
    }
  }
}

std::unique_ptr<Recordset> SqliteConnection::Impl::Open(std::string_view sql) {
  ReadShape(sql, shape_);
  if (shape_.kind != StatementKind::kQuery) Throw("La sentencia no devuelve filas");
  Lease lease = Acquire(sql);
  Bind(lease, true);
  return std::make_unique<SqliteRecordset>(database_, std::move(lease));
}

std::int64_t SqliteConnection::Impl::Execute(std::string_view sql) {
  ReadShape(sql, shape_);
  if (shape_.kind == StatementKind::kSetting) {
    CheckSetting(sql);
    return 0;
  }
  if (shape_.kind == StatementKind::kDefinition) {
    Define(sql);
    return 0;
  }
  const Lease lease = Acquire(sql);
  Bind(lease, false);
  database_->Step(lease.Statement());
  return shape_.kind == StatementKind::kQuery ? 0 : sqlite3_changes64(Handle());
}

void SqliteConnection::Impl::UpdateBlob(std::string_view sql, std::string_view field,
                                        std::span<const std::byte> bytes) {
  const KeyedQuery query = WithRowKey(sql);
  const auto rows = Open(query.sql);
  rows->Field(field);
  if (rows->Eof()) Throw("No hay registro actual");
  const auto key = rows->Get<std::int64_t>(0);
  rows->Close();
  const StatementPtr update = database_->Prepare("UPDATE " + Quoted(query.table) + " SET " +
                                                 Quoted(field) + " = ?1 WHERE rowid = ?2");
  // No bytes are an empty value, not a null.
  const void* const data = bytes.empty() ? "" : static_cast<const void*>(bytes.data());
  database_->Check(sqlite3_bind_blob64(update.get(), 1, data, bytes.size(), SQLITE_STATIC));
  database_->Check(sqlite3_bind_int64(update.get(), 2, key));
  database_->Step(update.get());
}

void SqliteConnection::Impl::Define(std::string_view sql) {
  has_defined_ = true;
  const Pieces pieces = ReadPieces(sql);
  if (!DefinesFunction(pieces)) {
    database_->RunAll(TranslateDefinition(sql, schema_, functions_));
  } else if (WordAt(pieces, 0, "DROP")) {
    functions_.Drop(sql);
  } else {
    functions_.Define(sql);
  }
  Forget();
}

void SqliteConnection::Impl::Forget() {
  schema_.Forget();
  cache_.Clear();
}

void SqliteConnection::Impl::Begin() {
  database_->Run("BEGIN IMMEDIATE");
  in_transaction_ = true;
  has_defined_ = false;
}

void SqliteConnection::Impl::Commit() {
  database_->Run("COMMIT");
  in_transaction_ = false;
}

void SqliteConnection::Impl::Rollback() {
  // Some failures (a full disk) make SQLite roll back by itself.
  if (!in_transaction_ || database_->InTransaction()) database_->Run("ROLLBACK");
  in_transaction_ = false;
  if (!has_defined_) return;
  Forget();
  functions_.Load();
}

void SqliteConnection::Impl::Run(std::string_view script) {
  const bool own = !database_->InTransaction();
  if (own) Begin();
  try {
    for (const std::string_view statement : SplitScript(script)) Execute(statement);
    if (own) Commit();
  } catch (...) {
    if (own) Rollback();
    throw;
  }
}

SqliteConnection::SqliteConnection(const std::string& path, const SqliteOptions& options)
    : impl_(std::make_unique<Impl>(path, options)) {}

SqliteConnection::~SqliteConnection() = default;

SqliteConnection::Impl& SqliteConnection::Opened() const {
  if (impl_ == nullptr) Throw("La conexión está cerrada");
  return *impl_;
}

std::unique_ptr<Recordset> SqliteConnection::Open(std::string_view sql) {
  return Opened().Open(sql);
}

std::int64_t SqliteConnection::Execute(std::string_view sql) { return Opened().Execute(sql); }
void SqliteConnection::UpdateBlob(std::string_view sql, std::string_view field,
                                  std::span<const std::byte> bytes) {
  Opened().UpdateBlob(sql, field, bytes);
}
void SqliteConnection::BeginTrans() { Opened().Begin(); }
void SqliteConnection::CommitTrans() { Opened().Commit(); }
void SqliteConnection::RollbackTrans() { Opened().Rollback(); }
void SqliteConnection::Run(std::string_view script) { Opened().Run(script); }
void SqliteConnection::Close() { impl_.reset(); }
sqlite3* SqliteConnection::Handle() const { return Opened().Handle(); }
void SqliteConnection::ForgetSchema() { Opened().Forget(); }

void RegisterDialect(sqlite3* db, std::function<FechaHora()> clock) {
  AddCollations(db, nullptr);
  AddFunctions(db, std::move(clock));
}

}  // namespace kvraedi
