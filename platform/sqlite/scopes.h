#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/sqlite/piece.h"
#include "platform/sqlite/schema.h"

namespace kvraedi::sqlite {

/// A table of a FROM, JOIN, INTO or UPDATE, as it is called in its statement.
struct Source {
  std::string alias;            // folded; the table's name when it has none
  std::string table;            // folded; empty for a subquery
  std::size_t alias_place = 0;  // the piece that gives the alias; 0 when none does
};

/// A column named in a statement, with the pieces that name it.
struct ColumnUse {
  const Column* column = nullptr;  // of the schema
  std::size_t first = 0;
  std::size_t last = 0;
  std::string table;  // folded
  ColumnKind Kind() const { return column->type.kind; }
};

/// Knows which tables can be seen from each place of a statement.
class Scopes {
 public:
  explicit Scopes(const Pieces& pieces);

  /// The column whose name ends or starts at a place; nothing when no table with such a column is
  /// known there.
  std::optional<ColumnUse> ColumnEndingAt(std::size_t i, Schema& schema) const;
  std::optional<ColumnUse> ColumnStartingAt(std::size_t i, Schema& schema) const;

  std::vector<Source> AllSources() const;

 private:
  struct Scope {
    int parent = -1;
    bool has_subquery = false;
    std::vector<Source> sources;
  };
  struct Level {
    int scope = -1;    // what is seen at this depth
    int outside = -1;  // what is seen around its parentheses
    bool in_from = false;
  };

  void Visit(std::size_t i, std::vector<Level>& levels);
  void VisitWord(std::size_t i, Level& level);
  void AddScope(Level& level);
  void AddSource(std::size_t i, Level& level);
  std::optional<ColumnUse> Resolve(std::size_t first, std::size_t last, Schema& schema) const;

  const Pieces& pieces_;
  std::vector<Scope> scopes_;
  std::vector<int> scope_of_;  // of each piece; -1 for none
};

}  // namespace kvraedi::sqlite
