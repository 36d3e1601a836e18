#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/column_kind.h"
#include "platform/sqlite/database.h"

namespace kvraedi::sqlite {

struct Column {
  std::string table;  // as the database calls it
  std::string label;  // as the table calls it
  std::string name;   // folded
  ColumnType type;
  bool automatic = false;  // an identity or a computed column: never given a value
};

struct Table {
  std::vector<Column> columns;  // none when there is no such table
  bool has_identity = false;
  /// Null when there is no such column.
  const Column* Find(std::string_view folded_name) const;
};

/// The columns of the database's tables, read when they are first asked for; they stay where they
/// are until they are forgotten.
class Schema {
 public:
  explicit Schema(Database& database) : database_(database) {}
  const Table& Find(std::string_view table);
  void Forget() { tables_.clear(); }

 private:
  Table Read(const std::string& table);

  Database& database_;
  std::unordered_map<std::string, Table> tables_;
};

}  // namespace kvraedi::sqlite
