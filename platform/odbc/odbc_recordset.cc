#include "platform/odbc/odbc_recordset.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/odbc/numbers.h"
#include "platform/odbc/stored_rows.h"
#include "platform/odbc/wide.h"

namespace kvraedi::odbc {
namespace {

constexpr std::int32_t kErrorNoRow = 3021;

/// The text with the capitals of Spanish, and of its neighbours, made small.
std::string Small(std::string_view utf8) {
  std::string small(utf8);
  for (std::size_t i = 0; i < small.size(); ++i) {
    const auto c = static_cast<unsigned char>(small[i]);
    const bool latin = i > 0 && small[i - 1] == '\xC3' && c >= 0x80U && c <= 0x9EU && c != 0x97U;
    if ((c >= 'A' && c <= 'Z') || latin) small[i] = static_cast<char>(c + 0x20U);
  }
  return small;
}

[[noreturn]] void ThrowNoField(const std::string& name) {
  throw Error(kErrorItemNotFound, "ODBC", "No existe el campo " + name);
}

FechaHora DateOf(const SQL_TIMESTAMP_STRUCT& stamp) {
  const auto small = [](SQLUSMALLINT value) { return static_cast<std::int8_t>(value); };
  return {stamp.year,        small(stamp.month),  small(stamp.day),
          small(stamp.hour), small(stamp.minute), small(stamp.second)};
}

}  // namespace

OdbcRecordset::OdbcRecordset(std::shared_ptr<Session> session, std::string_view sql)
    : session_(std::move(session)) {
  session_->Ready();
  auto cursor = std::make_unique<Cursor>(*session_, sql);
  columns_ = cursor->Columns();
  texts_.resize(columns_.size());
  eof_ = !cursor->Next();
  cursor_ = cursor.get();
  rows_ = std::move(cursor);
  if (!cursor_->Finished()) session_->Hold(this);
}

OdbcRecordset::~OdbcRecordset() { session_->Release(this); }

void OdbcRecordset::MoveNext() {
  if (eof_) throw Error(kErrorNoRow, "ODBC", "No hay registro actual");
  eof_ = true;
  for (auto& text : texts_) text.reset();
  eof_ = !rows_->Next();
  if (cursor_ != nullptr && cursor_->Finished()) session_->Release(this);
}

void OdbcRecordset::Close() {
  eof_ = true;
  session_->Release(this);
  cursor_ = nullptr;
  rows_.reset();
  columns_.clear();
}

void OdbcRecordset::ReadAhead() {
  cursor_ = nullptr;
  if (!eof_) rows_ = std::make_unique<StoredRows>(*rows_, columns_.size());
}

int OdbcRecordset::Field(std::string_view name) const {
  const std::string wanted = Small(name);
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const Column& column) {
    return Small(column.name) == wanted;
  });
  if (found == columns_.end()) ThrowNoField(std::string(name));
  return static_cast<int>(found - columns_.begin());
}

Cell OdbcRecordset::At(int field) const {
  if (eof_) throw Error(kErrorNoRow, "ODBC", "No hay registro actual");
  if (field < 0 || field >= std::ssize(columns_)) ThrowNoField(std::to_string(field));
  return rows_->At(static_cast<std::size_t>(field));
}

Bytes OdbcRecordset::BytesOf(const Cell& cell) const {
  if (cell.size <= 0) return {};
  if (cell.data != nullptr) return {cell.data, cell.data + cell.size};
  Bytes bytes(static_cast<std::size_t>(cell.size));
  rows_->Load(cell.place, bytes);
  return bytes;
}

std::string OdbcRecordset::CharactersOf(const Cell& cell) const {
  const Bytes bytes = BytesOf(cell);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A value that is fetched as a T.
template <class T>
T OdbcRecordset::Stored(int field) const {
  T value{};
  const Cell cell = At(field);
  if (cell.data != nullptr) {
    std::memcpy(&value, cell.data, sizeof(value));
  } else {
    rows_->Load(cell.place, std::as_writable_bytes(std::span(&value, 1)));
  }
  return value;
}

std::int64_t OdbcRecordset::ReadInteger(int field) const {
  switch (KindOf(field)) {
    case Kind::kInteger:
      return Stored<std::int64_t>(field);
    case Kind::kReal:
      return IntegerOf(Stored<double>(field));
    case Kind::kDecimal:
    case Kind::kText:
      return IntegerOf(ReadText(field));
    default:
      ThrowTypeMismatch();
  }
}

double OdbcRecordset::ReadDouble(int field) const {
  switch (KindOf(field)) {
    case Kind::kInteger:
      return static_cast<double>(Stored<std::int64_t>(field));
    case Kind::kReal:
      return Stored<double>(field);
    case Kind::kDecimal:
    case Kind::kText:
      return RealOf(ReadText(field));
    default:
      ThrowTypeMismatch();
  }
}

Currency OdbcRecordset::ReadCurrency(int field) const {
  switch (KindOf(field)) {
    case Kind::kInteger:
      return Currency::FromInteger(Stored<std::int64_t>(field));
    case Kind::kReal:
      return Currency::FromDouble(Stored<double>(field));
    case Kind::kDecimal:
    case Kind::kText:
      if (const auto value = Currency::Parse(WithoutBlanks(ReadText(field)))) return *value;
      [[fallthrough]];
    default:
      ThrowTypeMismatch();
  }
}

FechaHora OdbcRecordset::ReadDate(int field) const {
  if (KindOf(field) == Kind::kDate) return DateOf(Stored<SQL_TIMESTAMP_STRUCT>(field));
  const auto date = KindOf(field) == Kind::kText ? FechaHora::Parse(ReadText(field)) : std::nullopt;
  if (!date) ThrowTypeMismatch();
  return *date;
}

bool OdbcRecordset::ReadBool(int field) const {
  if (KindOf(field) == Kind::kText) {
    const std::string text = Small(WithoutBlanks(ReadText(field)));
    if (text == "true" || text == "false") return text == "true";
  }
  return ReadDouble(field) != 0;
}

std::string_view OdbcRecordset::ReadText(int field) const {
  auto& text = texts_[static_cast<std::size_t>(field)];
  if (!text) text = TextOf(field);
  return *text;
}

std::string OdbcRecordset::TextOf(int field) const {
  const Cell cell = At(field);
  const auto size = static_cast<std::size_t>(cell.size);
  switch (KindOf(field)) {
    case Kind::kInteger:
      return std::to_string(Stored<std::int64_t>(field));
    case Kind::kReal:
      return RealText(Stored<double>(field));
    case Kind::kDecimal:
      return PlainDecimal(CharactersOf(cell));
    case Kind::kDate:
      return DateOf(Stored<SQL_TIMESTAMP_STRUCT>(field)).ToIso();
    case Kind::kText:
      return cell.data != nullptr ? ToUtf8({cell.data, size}) : ToUtf8(BytesOf(cell));
    case Kind::kBytes:
      break;
  }
  return CharactersOf(cell);
}

Bytes OdbcRecordset::ReadBytes(int field) const {
  if (KindOf(field) == Kind::kBytes) return BytesOf(At(field));
  if (KindOf(field) != Kind::kText) ThrowTypeMismatch();
  const auto bytes = std::as_bytes(std::span(ReadText(field)));
  return {bytes.begin(), bytes.end()};
}

}  // namespace kvraedi::odbc
