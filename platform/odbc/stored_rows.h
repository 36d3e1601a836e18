#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <vector>

#include "platform/odbc/rows.h"

namespace kvraedi::odbc {

/// What was left of a query when another statement needed the wire: its rows from the one at hand
/// on, the first eight megabytes in memory, more than that in a temporary file.
class StoredRows : public Rows {
 public:
  /// Reads `rows`, which stands on a row of so many fields, to its end, and stands on that same
  /// row.
  StoredRows(Rows& rows, std::size_t fields);

  /// Raises what ended the reading, once the rows before it are used up.
  bool Next() override;
  Cell At(std::size_t field) override { return cells_[field]; }
  void Load(std::int64_t place, std::span<std::byte> out) override { spool_.Read(place, out); }

 private:
  void Store(Rows& rows);
  void StoreValue(Rows& rows, const Cell& cell);

  Spool spool_;
  std::int64_t at_ = 0;
  std::int64_t left_ = 0;  // rows
  std::vector<Cell> cells_;
  std::vector<std::byte> values_;  // of the row at hand
  std::exception_ptr failure_;
};

}  // namespace kvraedi::odbc
