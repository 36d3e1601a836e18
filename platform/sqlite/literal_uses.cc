#include "platform/sqlite/literal_uses.h"

#include "platform/sqlite/collations.h"
#include "platform/sqlite/operands.h"
#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {
namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

std::string Collate(std::string_view name) { return "COLLATE " + std::string(name); }

/// What a literal is compared with.
struct Side {
  ColumnKind kind = ColumnKind::kUnknown;
  std::size_t last = 0;  // the piece that ends it
  bool column = false;   // nothing but a column, which has its collation
};

class Marker {
 public:
  Marker(Pieces& pieces, Schema& schema)
      : pieces_(pieces), schema_(schema), scopes_(pieces), operands_(pieces_, scopes_, schema) {}

  void Mark() {
    MarkInsert();
    if (WordAt(pieces_, 0, "UPDATE")) {
      set_ = FindWord(pieces_, 0, pieces_.size(), {"SET"});
      set_end_ = FindWord(pieces_, set_, pieces_.size(), {"FROM", "WHERE"});
    }
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (IsComparison(pieces_, i)) MarkComparison(i);
      if (WordAt(pieces_, i, "BETWEEN")) MarkBetween(i);
      if (WordAt(pieces_, i, "IN") && MarkAt(pieces_, i + 1, "(")) MarkIn(i);
      if (WordAt(pieces_, i, "ISNULL") && MarkAt(pieces_, i + 1, "(")) MarkIsNull(i);
    }
  }

 private:
  bool IsArithmetic(std::size_t i) const {
    for (const char* mark : {"+", "-", "*", "/", "%", "&", "|", "^", "."}) {
      if (MarkAt(pieces_, i, mark)) return true;
    }
    return false;
  }

  /// A literal at `i` that is an operand by itself.
  bool WholeLiteral(std::size_t i) const {
    return i < pieces_.size() && IsLiteral(pieces_[i]) && !IsArithmetic(i + 1) &&
           (i == 0 || !IsArithmetic(i - 1));
  }

  std::optional<ColumnUse> WholeColumn(const std::optional<ColumnUse>& column) const {
    if (!column || IsArithmetic(column->last + 1)) return std::nullopt;
    if (column->first > 0 && IsArithmetic(column->first - 1)) return std::nullopt;
    return column;
  }

  std::optional<ColumnUse> ColumnBefore(std::size_t i) const {
    return i == 0 ? std::nullopt : WholeColumn(scopes_.ColumnEndingAt(i - 1, schema_));
  }

  std::optional<ColumnUse> ColumnAt(std::size_t i) const {
    return WholeColumn(scopes_.ColumnStartingAt(i, schema_));
  }

  void MarkStored(Piece& literal, ColumnKind kind) {
    literal.use = UseBeside(kind, literal.token.kind == TokenKind::kText);
  }

  /// Nothing for a name that is not known: the column of a subquery brings its collation along.
  std::optional<Side> SideOf(const std::optional<ColumnUse>& column, Stretch stretch) const {
    if (column) return Side{column->kind, column->last, true};
    const bool name =
        NameAt(pieces_, stretch.begin) &&
        (stretch.end - stretch.begin == 1 ||
         (stretch.end - stretch.begin == 3 && MarkAt(pieces_, stretch.begin + 1, ".")));
    if (stretch.Empty() || name) return std::nullopt;
    return Side{operands_.KindOf(stretch), stretch.end - 1, false};
  }

  std::optional<Side> SideBefore(std::size_t i) const {
    return SideOf(ColumnBefore(i), operands_.Before(i));
  }

  std::optional<Side> SideAfter(std::size_t i) const {
    return SideOf(ColumnAt(i + 1), operands_.After(i));
  }

  void MarkCompared(Piece& literal, const Side& side) {
    const bool text = literal.token.kind == TokenKind::kText;
    if (text && side.kind == ColumnKind::kUnknown && !side.column) {
      ThrowUnsupported("la comparación de " + std::string(literal.token.text) +
                       " con una expresión de tipo desconocido");
    }
    MarkStored(literal, side.kind);
    if (literal.use == LiteralUse::kNumberText) {
      pieces_[side.last].after = Collate(kNumberCollation);
    } else {
      MarkCollation(side);
    }
  }

  /// An expression is compared as its columns are.
  void MarkCollation(const Side& side) {
    const std::string_view collation = CollationOf(side.kind);
    if (!side.column && !collation.empty()) pieces_[side.last].after = Collate(collation);
  }

  bool IsAssignment(const ColumnUse& column) const {
    return column.first > set_ && column.last < set_end_ &&
           (column.first == set_ + 1 || MarkAt(pieces_, column.first - 1, ","));
  }

  void MarkComparison(std::size_t i) {
    const auto column = ColumnBefore(i);
    if (column && IsAssignment(*column)) {
      if (WholeLiteral(i + 1)) MarkStored(pieces_[i + 1], column->kind);
      return;
    }
    const auto left = SideBefore(i);
    const auto right = SideAfter(i);
    if (left && WholeLiteral(i + 1)) {
      MarkCompared(pieces_[i + 1], *left);
    } else if (right && i > 0 && WholeLiteral(i - 1)) {
      MarkCompared(pieces_[i - 1], *right);
    } else if (left && right && !left->column && !right->column) {
      MarkCollation(left->kind == ColumnKind::kUnknown ? *right : *left);
    }
  }

  /// expression BETWEEN low AND high, or literal BETWEEN column AND column.
  void MarkBetween(std::size_t i) {
    const std::size_t operand = WordAt(pieces_, i - 1, "NOT") ? i - 1 : i;
    const std::size_t both = FindWord(pieces_, i, pieces_.size(), {"AND"});
    if (operand > 0 && WholeLiteral(operand - 1)) {
      if (const auto low = SideAfter(i)) MarkCompared(pieces_[operand - 1], *low);
    } else if (const auto side = SideBefore(operand)) {
      if (WholeLiteral(i + 1)) MarkCompared(pieces_[i + 1], *side);
      if (WholeLiteral(both + 1)) MarkCompared(pieces_[both + 1], *side);
    }
  }

  void MarkIn(std::size_t i) {
    const auto side = SideBefore(i > 0 && WordAt(pieces_, i - 1, "NOT") ? i - 1 : i);
    if (!side) return;
    MarkCollation(*side);
    for (const auto& [begin, end] : SplitAtCommas(pieces_, i + 2, Closing(pieces_, i + 1))) {
      if (end - begin == 1 && IsLiteral(pieces_[begin])) MarkCompared(pieces_[begin], *side);
    }
  }

  void MarkIsNull(std::size_t i) {
    const auto column = scopes_.ColumnStartingAt(i + 2, schema_);
    if (!column || !MarkAt(pieces_, column->last + 1, ",")) return;
    const std::size_t close = Closing(pieces_, i + 1);
    if (column->last + 3 == close && IsLiteral(pieces_[close - 1])) {
      MarkStored(pieces_[close - 1], column->kind);
    }
    const std::string_view collation = CollationOf(column->kind);
    if (!collation.empty() && pieces_[close].after.empty()) {
      pieces_[close].after = Collate(collation);
    }
  }

  void MarkInsert() {
    if (!WordAt(pieces_, 0, "INSERT")) return;
    std::size_t i = WordAt(pieces_, 1, "INTO") ? 2 : 1;
    while (MarkAt(pieces_, i + 1, ".")) i += 2;
    if (!NameAt(pieces_, i)) return;
    const Table& table = schema_.Find(NameOf(pieces_[i].token));
    std::vector<ColumnKind> kinds;
    if (MarkAt(pieces_, i + 1, "(")) {
      const std::size_t close = Closing(pieces_, i + 1);
      for (const auto& [begin, end] : SplitAtCommas(pieces_, i + 2, close)) {
        const auto kind = table.KindOf(Folded(NameOf(pieces_[end - 1].token)));
        kinds.push_back(kind.value_or(ColumnKind::kUnknown));
      }
      i = close;
    } else {
      kinds = AllButAutomatic(table, pieces_[i]);
    }
    MarkInserted(i + 1, kinds);
  }

  /// Without a list, values stand for the columns in order, automatic columns left out.
  static std::vector<ColumnKind> AllButAutomatic(const Table& table, Piece& name) {
    std::vector<ColumnKind> kinds;
    std::string list;
    for (const Column& column : table.columns) {
      if (column.automatic) continue;
      kinds.push_back(column.kind);
      list += (list.empty() ? "" : ", ") + Quoted(column.name);
    }
    if (table.has_identity && !kinds.empty()) name.after = "(" + list + ")";
    return kinds;
  }

  void MarkInserted(std::size_t i, const std::vector<ColumnKind>& kinds) {
    if (WordAt(pieces_, i, "VALUES")) {
      for (++i; MarkAt(pieces_, i, "("); i += MarkAt(pieces_, i + 1, ",") ? 2 : 1) {
        const std::size_t close = Closing(pieces_, i);
        MarkItems(i + 1, close, kinds);
        i = close;
      }
    } else if (WordAt(pieces_, i, "SELECT")) {
      const std::size_t end =
          FindWord(pieces_, i, pieces_.size(), {"FROM", "WHERE", "UNION", "ORDER"});
      const bool distinct = WordAt(pieces_, i + 1, "DISTINCT") || WordAt(pieces_, i + 1, "ALL");
      MarkItems(distinct ? i + 2 : i + 1, end, kinds);
    }
  }

  void MarkItems(std::size_t begin, std::size_t end, const std::vector<ColumnKind>& kinds) {
    std::size_t column = 0;
    for (const auto& [first, behind] : SplitAtCommas(pieces_, begin, end)) {
      if (column == kinds.size()) return;
      if (behind - first == 1 && IsLiteral(pieces_[first])) {
        MarkStored(pieces_[first], kinds[column]);
      }
      ++column;
    }
  }

  Pieces& pieces_;
  Schema& schema_;
  Scopes scopes_;
  Operands operands_;
  std::size_t set_ = kNowhere;
  std::size_t set_end_ = 0;
};

}  // namespace

void MarkLiteralUses(Pieces& pieces, Schema& schema) { Marker(pieces, schema).Mark(); }

}  // namespace kvraedi::sqlite
