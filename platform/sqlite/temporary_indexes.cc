#include "platform/sqlite/temporary_indexes.h"

#include <algorithm>
#include <map>

#include "platform/sqlite/collations.h"
#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {
namespace {

bool NamesTemporary(const Piece& piece) {
  return IsName(piece) && NameOf(piece.token).starts_with('#');
}

std::string IndexOf(const std::string& table, const std::string& columns) {
  std::string name = table;
  name.append(": ").append(columns);
  std::string index = "CREATE INDEX IF NOT EXISTS temp.";
  index.append(Quoted(name)).append(" ON ").append(Quoted(table));
  return index.append(" (").append(columns).append(")");
}

}  // namespace

std::vector<std::string> TemporaryIndexes(const Pieces& pieces, Schema& schema,
                                          const std::vector<const Column*>& as_numbers) {
  std::vector<std::string> indexes;
  if (std::none_of(pieces.begin(), pieces.end(), NamesTemporary)) return indexes;
  const Scopes scopes(pieces);
  std::map<std::string, std::string> columns;  // lists, by table
  const std::size_t where = FindWord(pieces, 0, pieces.size(), {"WHERE"});
  for (std::size_t i = where + 2; i + 1 < pieces.size(); ++i) {
    if (!MarkAt(pieces, i, "=") || !IsLiteral(pieces[i + 1])) continue;
    const auto column = scopes.ColumnEndingAt(i - 1, schema);
    if (!column || !column->table.starts_with('#')) continue;
    const Piece& name = pieces[column->last];
    std::string& list = columns[column->table];
    if (!list.empty()) list += ", ";
    list += Quoted(Folded(NameOf(name.token))) + " " + name.after;
  }
  for (const auto& [table, list] : columns) indexes.push_back(IndexOf(table, list));
  for (const Column* column : as_numbers) {
    if (!column->table.starts_with('#')) continue;
    indexes.push_back(IndexOf(Folded(column->table),
                              Quoted(column->name) + " COLLATE " + std::string(kNumberCollation)));
  }
  return indexes;
}

}  // namespace kvraedi::sqlite
