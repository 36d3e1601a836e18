#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {

Scopes::Scopes(const Pieces& pieces) : pieces_(pieces) {
  std::vector<Level> levels(1);
  scope_of_.reserve(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    Visit(i, levels);
    scope_of_.push_back(levels.back().scope);
  }
}

void Scopes::Visit(std::size_t i, std::vector<Level>& levels) {
  if (MarkAt(pieces_, i, "(")) {
    const int around = levels.back().scope;
    levels.push_back({around, around, false});
  } else if (MarkAt(pieces_, i, ")")) {
    if (levels.size() > 1) levels.pop_back();
  } else if (MarkAt(pieces_, i, ",")) {
    if (levels.back().in_from) AddSource(i + 1, levels.back());
  } else if (pieces_[i].token.kind == TokenKind::kWord) {
    VisitWord(i, levels.back());
  }
}

void Scopes::VisitWord(std::size_t i, Level& level) {
  const auto is = [&](std::string_view word) { return WordAt(pieces_, i, word); };
  if (is("SELECT") || is("INSERT") || is("DELETE")) {
    AddScope(level);
  } else if (is("UPDATE")) {
    AddScope(level);
    AddSource(i + 1, level);
  } else if (is("FROM") || is("JOIN") || is("INTO")) {
    level.in_from = is("FROM") || level.in_from;
    AddSource(i + 1, level);
  } else if (is("WHERE") || is("GROUP") || is("ORDER") || is("HAVING") || is("UNION") ||
             is("SET") || is("VALUES")) {
    level.in_from = false;
  }
}

void Scopes::AddScope(Level& level) {
  scopes_.push_back({level.outside, false, {}});
  level.scope = static_cast<int>(scopes_.size()) - 1;
  level.in_from = false;
}

void Scopes::AddSource(std::size_t i, Level& level) {
  if (level.scope < 0) return;
  Scope& scope = scopes_[static_cast<std::size_t>(level.scope)];
  if (MarkAt(pieces_, i, "(")) scope.has_subquery = true;
  if (!NameAt(pieces_, i)) return;
  while (MarkAt(pieces_, i + 1, ".") && NameAt(pieces_, i + 2)) i += 2;
  Source source;
  source.table = Folded(NameOf(pieces_[i].token));
  source.alias = source.table;
  const std::size_t place = WordAt(pieces_, i + 1, "AS") ? i + 2 : i + 1;
  if (NameAt(pieces_, place)) {
    source.alias = Folded(NameOf(pieces_[place].token));
    source.alias_place = place;
  }
  scope.sources.push_back(std::move(source));
}

std::optional<ColumnUse> Scopes::ColumnEndingAt(std::size_t i, Schema& schema) const {
  if (!NameAt(pieces_, i)) return std::nullopt;
  std::size_t first = i;
  while (first >= 2 && MarkAt(pieces_, first - 1, ".") && NameAt(pieces_, first - 2)) first -= 2;
  return Resolve(first, i, schema);
}

std::optional<ColumnUse> Scopes::ColumnStartingAt(std::size_t i, Schema& schema) const {
  if (!NameAt(pieces_, i)) return std::nullopt;
  std::size_t last = i;
  while (MarkAt(pieces_, last + 1, ".") && NameAt(pieces_, last + 2)) last += 2;
  if (MarkAt(pieces_, last + 1, "(")) return std::nullopt;
  return Resolve(i, last, schema);
}

std::optional<ColumnUse> Scopes::Resolve(std::size_t first, std::size_t last,
                                         Schema& schema) const {
  const std::string column = Folded(NameOf(pieces_[last].token));
  const std::string qualifier =
      first == last ? std::string() : Folded(NameOf(pieces_[last - 2].token));
  for (int at = scope_of_[last]; at >= 0;) {
    const Scope& scope = scopes_[static_cast<std::size_t>(at)];
    for (const Source& source : scope.sources) {
      if (!qualifier.empty() && source.alias != qualifier) continue;
      if (const Column* known = schema.Find(source.table).Find(column)) {
        return ColumnUse{known, first, last, source.table};
      }
    }
    if (scope.has_subquery) return std::nullopt;
    at = scope.parent;
  }
  return std::nullopt;
}

std::vector<Source> Scopes::AllSources() const {
  std::vector<Source> all;
  for (const Scope& scope : scopes_) {
    all.insert(all.end(), scope.sources.begin(), scope.sources.end());
  }
  return all;
}

}  // namespace kvraedi::sqlite
