#include "platform/odbc/stored_rows.h"

#include <algorithm>
#include <utility>

#include "kvraedi/error.h"

namespace kvraedi::odbc {
namespace {

constexpr std::size_t kInMemory = std::size_t{8} * 1024 * 1024;
constexpr std::int64_t kLongValue = std::int64_t{64} * 1024;  // stays where it is until it is read

}  // namespace

StoredRows::StoredRows(Rows& rows, std::size_t fields) : spool_(kInMemory), cells_(fields) {
  try {
    do {
      Store(rows);
      ++left_;
    } while (rows.Next());
  } catch (const Error&) {
    failure_ = std::current_exception();
  }
  Next();
}

/// A row is the sizes of its values, then the values.
void StoredRows::Store(Rows& rows) {
  for (std::size_t field = 0; field < cells_.size(); ++field) cells_[field] = rows.At(field);
  for (const Cell& cell : cells_) spool_.Append(std::as_bytes(std::span(&cell.size, 1)));
  for (const Cell& cell : cells_) StoreValue(rows, cell);
}

void StoredRows::StoreValue(Rows& rows, const Cell& cell) {
  if (cell.size <= 0) return;
  if (cell.data != nullptr) {
    spool_.Append({cell.data, static_cast<std::size_t>(cell.size)});
    return;
  }
  std::vector<std::byte> piece;
  for (std::int64_t done = 0; done < cell.size; done += std::ssize(piece)) {
    piece.resize(static_cast<std::size_t>(std::min(kLongValue, cell.size - done)));
    rows.Load(cell.place + done, piece);
    spool_.Append(piece);
  }
}

bool StoredRows::Next() {
  if (left_ == 0) {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
    return false;
  }
  --left_;
  std::size_t kept = 0;
  for (Cell& cell : cells_) {
    cell = {};
    spool_.Read(at_, std::as_writable_bytes(std::span(&cell.size, 1)));
    at_ += static_cast<std::int64_t>(sizeof(cell.size));
    if (cell.size <= kLongValue)
      kept += static_cast<std::size_t>(std::max<std::int64_t>(cell.size, 0));
  }
  values_.resize(kept);
  std::size_t used = 0;
  for (Cell& cell : cells_) {
    cell.place = at_;
    if (cell.size <= 0) continue;
    at_ += cell.size;
    if (cell.size > kLongValue) continue;
    const auto value = std::span(values_).subspan(used, static_cast<std::size_t>(cell.size));
    spool_.Read(cell.place, value);
    cell.data = value.data();
    used += value.size();
  }
  return true;
}

}  // namespace kvraedi::odbc
