#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/odbc/column.h"
#include "platform/odbc/rows.h"

namespace kvraedi::odbc {

/// The rows of a query as they come from the server, a block at a time into bound columns. From
/// the first column of unbounded length on, columns are read one by one and in pieces, for drivers
/// allow that only behind the bound ones; such rows come singly.
class Cursor : public Rows {
 public:
  /// Runs the query; raises when it gives no rows.
  Cursor(Session& session, std::string_view sql);

  const std::vector<Column>& Columns() const { return columns_; }
  /// Whether the server has nothing more to give: the wire is free.
  bool Finished() const { return finished_; }

  bool Next() override;
  Cell At(std::size_t field) override;
  void Load(std::int64_t place, std::span<std::byte> out) override { pieces_.Read(place, out); }

 private:
  struct Binding {
    std::unique_ptr<std::byte[]> values;
    std::unique_ptr<SQLLEN[]> sizes;
  };

  void Bind();
  bool Fetch();
  void Finish();
  void ReadPieces(std::size_t field);

  Statement statement_;
  std::vector<Column> columns_;
  std::vector<Binding> bindings_;  // of the first columns
  SQLULEN block_ = 1;              // rows of a block
  SQLULEN fetched_ = 0;
  SQLULEN row_ = 0;
  std::vector<SQLUSMALLINT> states_;
  std::vector<Cell> cells_;  // of the columns that are not bound
  Spool pieces_;
  bool finished_ = false;
};

}  // namespace kvraedi::odbc
