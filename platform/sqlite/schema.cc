#include "platform/sqlite/schema.h"

#include <sqlite3.h>

#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {

const Column* Table::Find(std::string_view folded_name) const {
  for (const Column& column : columns) {
    if (column.name == folded_name) return &column;
  }
  return nullptr;
}

const Table& Schema::Find(std::string_view table) {
  const std::string name = Folded(table);
  const auto known = tables_.find(name);
  if (known != tables_.end()) return known->second;
  return tables_.emplace(name, Read(std::string(table))).first->second;
}

Table Schema::Read(const std::string& table) {
  Table result;
  const StatementPtr rows =
      database_.Prepare("SELECT name, type, pk, hidden FROM pragma_table_xinfo(?)");
  sqlite3_bind_text(rows.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_TRANSIENT);
  while (database_.Step(rows.get())) {
    const auto text = [&rows](int field) {
      return std::string(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), field)));
    };
    // Identity columns are the only ones that are declared with exactly this type.
    const std::string type = text(1);
    const bool identity = type == "INTEGER" && sqlite3_column_int(rows.get(), 2) != 0;
    const bool computed = sqlite3_column_int(rows.get(), 3) != 0;
    result.columns.push_back(
        {table, text(0), Folded(text(0)), TypeOfDeclared(type), identity || computed});
    result.has_identity = result.has_identity || identity;
  }
  return result;
}

}  // namespace kvraedi::sqlite
