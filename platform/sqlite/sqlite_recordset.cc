#include "platform/sqlite/sqlite_recordset.h"

#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <utility>

#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/numbers.h"

namespace kvraedi::sqlite {
namespace {

constexpr std::int32_t kErrorNoRow = 3021;

/// Halves go to the even neighbour.
std::int64_t ToInteger(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -kLimit && rounded < kLimit)) ThrowOverflow();
  return static_cast<std::int64_t>(rounded);
}

double ToReal(std::string_view text) {
  const auto value = ParseReal(text);
  if (!value) ThrowTypeMismatch();
  return *value;
}

}  // namespace

SqliteRecordset::SqliteRecordset(std::shared_ptr<Database> database, Lease lease)
    : database_(std::move(database)), lease_(std::move(lease)) {
  eof_ = !database_->Step(lease_.Statement());
}

void SqliteRecordset::MoveNext() {
  if (eof_) throw Error(kErrorNoRow, "SQLite", "No hay registro actual");
  eof_ = true;
  eof_ = !database_->Step(lease_.Statement());
}

void SqliteRecordset::Close() {
  eof_ = true;
  lease_.Release();
}

int SqliteRecordset::Field(std::string_view name) const {
  const int count = lease_.Released() ? 0 : sqlite3_column_count(lease_.Statement());
  for (int field = 0; field < count; ++field) {
    if (CompareTexts(sqlite3_column_name(lease_.Statement(), field), name) == 0) return field;
  }
  throw Error(kErrorItemNotFound, "SQLite", "No existe el campo " + std::string(name));
}

bool SqliteRecordset::IsNull(int field) const { return TypeOf(field) == SQLITE_NULL; }

int SqliteRecordset::TypeOf(int field) const {
  if (eof_) throw Error(kErrorNoRow, "SQLite", "No hay registro actual");
  if (field < 0 || field >= sqlite3_column_count(lease_.Statement())) {
    throw Error(kErrorItemNotFound, "SQLite", "No existe el campo " + std::to_string(field));
  }
  return sqlite3_column_type(lease_.Statement(), field);
}

/// The bytes of a text or blob.
std::string_view SqliteRecordset::Stored(int field) const {
  const void* data = sqlite3_column_blob(lease_.Statement(), field);
  if (data == nullptr) return "";
  return {static_cast<const char*>(data),
          static_cast<std::size_t>(sqlite3_column_bytes(lease_.Statement(), field))};
}

std::int64_t SqliteRecordset::IntegerAt(int field) const {
  return sqlite3_column_int64(lease_.Statement(), field);
}

double SqliteRecordset::RealAt(int field) const {
  return sqlite3_column_double(lease_.Statement(), field);
}

std::int64_t SqliteRecordset::ReadInteger(int field) const {
  switch (TypeOf(field)) {
    case SQLITE_INTEGER:
      return IntegerAt(field);
    case SQLITE_FLOAT:
      return ToInteger(RealAt(field));
    case SQLITE_TEXT:
      if (const auto integer = ParseInteger(Stored(field))) return *integer;
      return ToInteger(ToReal(Stored(field)));
    default:
      ThrowTypeMismatch();
  }
}

double SqliteRecordset::ReadDouble(int field) const {
  switch (TypeOf(field)) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return RealAt(field);
    case SQLITE_TEXT:
      return ToReal(Stored(field));
    default:
      ThrowTypeMismatch();
  }
}

Currency SqliteRecordset::ReadCurrency(int field) const {
  switch (TypeOf(field)) {
    case SQLITE_INTEGER:
      return Currency::FromInteger(IntegerAt(field));
    case SQLITE_FLOAT:
      return Currency::FromDouble(RealAt(field));
    case SQLITE_TEXT:
      if (const auto value = Currency::Parse(Trimmed(Stored(field)))) return *value;
      [[fallthrough]];
    default:
      ThrowTypeMismatch();
  }
}

FechaHora SqliteRecordset::ReadDate(int field) const {
  if (TypeOf(field) != SQLITE_TEXT) ThrowTypeMismatch();
  const auto date = FechaHora::Parse(Stored(field));
  if (!date) ThrowTypeMismatch();
  return *date;
}

bool SqliteRecordset::ReadBool(int field) const {
  if (TypeOf(field) == SQLITE_TEXT) {
    if (Same(Trimmed(Stored(field)), "TRUE")) return true;
    if (Same(Trimmed(Stored(field)), "FALSE")) return false;
  }
  return ReadDouble(field) != 0;
}

std::string_view SqliteRecordset::ReadText(int field) const {
  const int type = TypeOf(field);
  if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return Stored(field);
  const auto place = static_cast<std::size_t>(field);
  if (number_texts_.size() <= place) {
    number_texts_.resize(static_cast<std::size_t>(sqlite3_column_count(lease_.Statement())));
  }
  number_texts_[place] =
      type == SQLITE_INTEGER ? std::to_string(IntegerAt(field)) : RealText(RealAt(field));
  return number_texts_[place];
}

Bytes SqliteRecordset::ReadBytes(int field) const {
  const int type = TypeOf(field);
  if (type != SQLITE_BLOB && type != SQLITE_TEXT) ThrowTypeMismatch();
  const std::string_view stored = Stored(field);
  Bytes bytes(stored.size());
  if (!bytes.empty()) std::memcpy(bytes.data(), stored.data(), bytes.size());
  return bytes;
}

}  // namespace kvraedi::sqlite
