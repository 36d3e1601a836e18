#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/column_kind.h"
#include "platform/sqlite/database.h"

namespace kvraedi::sqlite {

struct Column {
  std::string name;  // folded
  ColumnKind kind = ColumnKind::kUnknown;
  bool automatic = false;  // an identity or a computed column: never given a value
};

struct Table {
  std::vector<Column> columns;  // none when there is no such table
  bool has_identity = false;
  std::optional<ColumnKind> KindOf(std::string_view folded_name) const;
};

/// The columns of the database's tables, read when they are first asked for.
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
