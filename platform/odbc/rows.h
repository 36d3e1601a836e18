#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/odbc/spool.h"

namespace kvraedi::odbc {

/// A value of the row at hand: bytes in memory or, when they are many, a place in a spool.
struct Cell {
  static constexpr std::int64_t kNull = -1;

  std::int64_t size = kNull;
  const std::byte* data = nullptr;
  std::int64_t place = 0;
};

/// Where a recordset has its rows from.
class Rows {
 public:
  virtual ~Rows() = default;
  /// Goes to the next row; false behind the last one.
  virtual bool Next() = 0;
  virtual Cell At(std::size_t field) = 0;
  /// Fills `out` from `place` of a cell without data on.
  virtual void Load(std::int64_t place, std::span<std::byte> out) = 0;
};

}  // namespace kvraedi::odbc
