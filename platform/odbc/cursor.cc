#include "platform/odbc/cursor.h"

#include <algorithm>
#include <utility>

namespace kvraedi::odbc {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{128} * 1024;
constexpr std::size_t kMostRows = 256;
constexpr std::size_t kPiece = std::size_t{64} * 1024;
constexpr std::size_t kPiecesInMemory = std::size_t{1} * 1024 * 1024;

}  // namespace

Cursor::Cursor(Session& session, std::string_view sql)
    : statement_(session), pieces_(kPiecesInMemory) {
  statement_.Run(sql);
  while (statement_.Columns() == 0) {
    if (!statement_.NextResult()) Throw("La sentencia no devuelve filas");
  }
  columns_ = DescribeColumns(statement_);
  Bind();
}

void Cursor::Bind() {
  const auto first_long = std::find_if(columns_.begin(), columns_.end(),
                                       [](const Column& column) { return column.width == 0; });
  std::size_t row_bytes = 0;
  for (auto column = columns_.begin(); column != first_long; ++column) {
    row_bytes += column->width + sizeof(SQLLEN);
  }
  if (first_long == columns_.end()) {
    block_ = std::clamp<std::size_t>(kBlockBytes / row_bytes, 1, kMostRows);
  }
  cells_.resize(columns_.size());
  states_.resize(block_);
  const SQLHANDLE handle = statement_.Get();
  statement_.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, AsPointer(block_), 0));
  statement_.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROW_STATUS_PTR, states_.data(), 0));
  statement_.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0));
  for (auto column = columns_.begin(); column != first_long; ++column) {
    Binding binding{std::make_unique_for_overwrite<std::byte[]>(column->width * block_),
                    std::make_unique<SQLLEN[]>(block_)};
    bindings_.push_back(std::move(binding));
    statement_.Check(SQLBindCol(handle, static_cast<SQLUSMALLINT>(bindings_.size()),
                                column->CType(), bindings_.back().values.get(),
                                static_cast<SQLLEN>(column->width), bindings_.back().sizes.get()));
  }
}

bool Cursor::Next() {
  ++row_;
  if (row_ < fetched_) return true;
  return !finished_ && Fetch();
}

/// Gets the next block; the row at hand is then its first one.
bool Cursor::Fetch() {
  fetched_ = 0;
  row_ = 0;
  pieces_.Clear();
  const SQLRETURN code = SQLFetch(statement_.Get());
  statement_.Check(code);
  if (code == SQL_NO_DATA) fetched_ = 0;
  const auto end = states_.begin() + static_cast<std::ptrdiff_t>(fetched_);
  if (std::find(states_.begin(), end, SQL_ROW_ERROR) != end) statement_.Check(SQL_ERROR);
  if (fetched_ == 0) {
    Finish();
    return false;
  }
  for (std::size_t field = bindings_.size(); field < columns_.size(); ++field) ReadPieces(field);
  if (fetched_ < block_) Finish();
  return true;
}

/// What stands behind the rows may be an error.
void Cursor::Finish() {
  finished_ = true;
  while (statement_.NextResult()) {
  }
  statement_.Free();
}

Cell Cursor::At(std::size_t field) {
  if (field >= bindings_.size()) return cells_[field];
  const Column& column = columns_[field];
  const SQLLEN size = bindings_[field].sizes[row_];
  if (size == SQL_NULL_DATA) return {};
  const std::size_t room = column.width - column.Terminator();
  if (size == SQL_NO_TOTAL || static_cast<std::size_t>(size) > room) {
    Throw("El valor del campo " + column.name + " es más largo de lo que dice el controlador");
  }
  return {size, bindings_[field].values.get() + row_ * column.width, 0};
}

void Cursor::ReadPieces(std::size_t field) {
  const Column& column = columns_[field];
  const std::size_t room = kPiece - column.Terminator();
  const std::int64_t place = pieces_.Size();
  std::vector<std::byte> piece(kPiece);
  bool more = true;
  SQLLEN size = 0;
  while (more) {
    const SQLRETURN code =
        SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(field + 1), column.CType(),
                   piece.data(), static_cast<SQLLEN>(piece.size()), &size);
    statement_.Check(code);
    if (code == SQL_NO_DATA || size == SQL_NULL_DATA) break;
    more = size == SQL_NO_TOTAL || static_cast<std::size_t>(size) > room;
    pieces_.Append(std::span(piece).first(more ? room : static_cast<std::size_t>(size)));
  }
  const bool null = size == SQL_NULL_DATA && pieces_.Size() == place;
  cells_[field] = {null ? Cell::kNull : pieces_.Size() - place, nullptr, place};
}

}  // namespace kvraedi::odbc
