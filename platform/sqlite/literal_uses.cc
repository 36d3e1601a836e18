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
  ColumnType type;
  std::size_t last = 0;            // the piece that ends it
  const Column* column = nullptr;  // when it is nothing but one, which has its collation
};

/// An expression whose value a statement stores.
struct Assignment {
  Stretch value;
  const Column* column;
};

class Marker {
 public:
  Marker(Pieces& pieces, Schema& schema)
      : pieces_(pieces), schema_(schema), scopes_(pieces), operands_(pieces_, scopes_, schema) {}

  std::vector<const Column*> Mark() {
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
    for (const Assignment& assignment : assignments_) WrapAssigned(assignment);
    return std::move(as_numbers_);
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

  /// A literal is checked when it is bound; what is computed, when the statement stores it.
  void MarkAssigned(Stretch value, const Column* column) {
    if (column == nullptr || value.Empty()) return;
    if (value.end - value.begin == 1 && IsLiteral(pieces_[value.begin])) {
      pieces_[value.begin].beside = {column->type, column};
    } else if (NeedsCheck(value, *column)) {
      assignments_.push_back({value, column});
    }
  }

  bool NeedsCheck(Stretch value, const Column& column) const {
    const ColumnType& type = column.type;
    if (type.sql == nullptr || type.sql->fit == Fit::kAny) return false;
    const bool null = value.end - value.begin == 1 && WordAt(pieces_, value.begin, "NULL");
    if (null || WordAt(pieces_, value.begin, "DEFAULT")) return false;
    const auto source = scopes_.ColumnStartingAt(value.begin, schema_);
    return !source || source->last + 1 != value.end || !(source->column->type == type);
  }

  void WrapAssigned(const Assignment& assignment) {
    pieces_[assignment.value.begin].before.insert(0, "kvr_guarda(");
    pieces_[assignment.value.end - 1].keeper = assignment.column;
  }

  /// Nothing for a name that is not known: the column of a subquery brings its collation along.
  std::optional<Side> SideOf(const std::optional<ColumnUse>& column, Stretch stretch) const {
    if (column) return Side{column->column->type, column->last, column->column};
    const bool name =
        NameAt(pieces_, stretch.begin) &&
        (stretch.end - stretch.begin == 1 ||
         (stretch.end - stretch.begin == 3 && MarkAt(pieces_, stretch.begin + 1, ".")));
    if (stretch.Empty() || name) return std::nullopt;
    return Side{{operands_.KindOf(stretch)}, stretch.end - 1};
  }

  std::optional<Side> SideBefore(std::size_t i) const {
    return SideOf(ColumnBefore(i), operands_.Before(i));
  }

  std::optional<Side> SideAfter(std::size_t i) const {
    return SideOf(ColumnAt(i + 1), operands_.After(i));
  }

  void MarkCompared(Piece& literal, const Side& side) {
    const bool text = literal.token.kind == TokenKind::kText;
    if (text && side.type.kind == ColumnKind::kUnknown && side.column == nullptr) {
      ThrowUnsupported("la comparación de " + std::string(literal.token.text) +
                       " con una expresión de tipo desconocido");
    }
    literal.beside.type = side.type;
    if (!text && side.type.kind == ColumnKind::kText) {
      if (side.column != nullptr) as_numbers_.push_back(side.column);
      pieces_[side.last].after = Collate(kNumberCollation);
    } else {
      MarkCollation(side);
    }
  }

  /// An expression is compared as its columns are.
  void MarkCollation(const Side& side) {
    const std::string_view collation = CollationOf(side.type.kind);
    if (side.column == nullptr && !collation.empty()) pieces_[side.last].after = Collate(collation);
  }

  bool IsAssignment(const ColumnUse& column) const {
    return column.first > set_ && column.last < set_end_ &&
           (column.first == set_ + 1 || MarkAt(pieces_, column.first - 1, ","));
  }

  void MarkComparison(std::size_t i) {
    const auto column = ColumnBefore(i);
    if (column && IsAssignment(*column)) {
      MarkAssigned(operands_.After(i), column->column);
      return;
    }
    const auto left = SideBefore(i);
    const auto right = SideAfter(i);
    if (left && WholeLiteral(i + 1)) {
      MarkCompared(pieces_[i + 1], *left);
    } else if (right && i > 0 && WholeLiteral(i - 1)) {
      MarkCompared(pieces_[i - 1], *right);
    } else if (left && right) {
      MarkSides(*left, *right);
    }
  }

  void MarkSides(const Side& left, const Side& right) {
    if (left.column == nullptr && right.column == nullptr) {
      MarkCollation(left.type.kind == ColumnKind::kUnknown ? right : left);
    }
    for (const auto& [text, other] : {std::pair(left, right), std::pair(right, left)}) {
      const bool as_number = text.type.kind == ColumnKind::kText && IsNumber(other.type.kind);
      if (as_number && text.column != nullptr) as_numbers_.push_back(text.column);
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
      pieces_[close - 1].beside.type = column->column->type;
    }
    const std::string_view collation = CollationOf(column->Kind());
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
    std::vector<const Column*> columns;
    if (MarkAt(pieces_, i + 1, "(")) {
      const std::size_t close = Closing(pieces_, i + 1);
      for (const auto& [begin, end] : SplitAtCommas(pieces_, i + 2, close)) {
        columns.push_back(table.Find(Folded(NameOf(pieces_[end - 1].token))));
      }
      i = close;
    } else {
      columns = AllButAutomatic(table, pieces_[i]);
    }
    MarkInserted(i + 1, columns);
  }

  /// Without a list, values stand for the columns in order, automatic columns left out.
  static std::vector<const Column*> AllButAutomatic(const Table& table, Piece& name) {
    std::vector<const Column*> columns;
    std::string list;
    for (const Column& column : table.columns) {
      if (column.automatic) continue;
      columns.push_back(&column);
      list += (list.empty() ? "" : ", ") + Quoted(column.name);
    }
    if (table.has_identity && !columns.empty()) name.after = "(" + list + ")";
    return columns;
  }

  void MarkInserted(std::size_t i, const std::vector<const Column*>& columns) {
    if (WordAt(pieces_, i, "VALUES")) {
      for (++i; MarkAt(pieces_, i, "("); i += MarkAt(pieces_, i + 1, ",") ? 2 : 1) {
        const std::size_t close = Closing(pieces_, i);
        MarkItems(i + 1, close, columns);
        i = close;
      }
    } else if (WordAt(pieces_, i, "SELECT")) {
      MarkItems(FirstItem(i), FindWord(pieces_, i, pieces_.size(), {"FROM", "WHERE", "UNION"}),
                columns);
      const std::size_t next = FindWord(pieces_, i, pieces_.size(), {"UNION"});
      MarkInserted(WordAt(pieces_, next + 1, "ALL") ? next + 2 : next + 1, columns);
    }
  }

  std::size_t FirstItem(std::size_t select) const {
    std::size_t i = select + 1;
    if (WordAt(pieces_, i, "DISTINCT") || WordAt(pieces_, i, "ALL")) ++i;
    if (!WordAt(pieces_, i, "TOP")) return i;
    return MarkAt(pieces_, i + 1, "(") ? Closing(pieces_, i + 1) + 1 : i + 2;
  }

  void MarkItems(std::size_t begin, std::size_t end, const std::vector<const Column*>& columns) {
    std::size_t column = 0;
    for (const auto& [first, behind] : SplitAtCommas(pieces_, begin, end)) {
      if (column == columns.size()) return;
      if (MarkAt(pieces_, behind - 1, "*")) ThrowUnsupported("INSERT con SELECT *");
      MarkAssigned({first, EndOfItem(first, behind)}, columns[column++]);
    }
  }

  /// The end of an item of a SELECT without its alias.
  std::size_t EndOfItem(std::size_t first, std::size_t behind) const {
    const std::size_t as = FindWord(pieces_, first, behind, {"AS"});
    if (as != behind) return as;
    const bool alias =
        behind - first > 1 && NameAt(pieces_, behind - 1) && !IsArithmetic(behind - 2);
    return alias ? behind - 1 : behind;
  }

  Pieces& pieces_;
  Schema& schema_;
  Scopes scopes_;
  Operands operands_;
  std::vector<Assignment> assignments_;
  std::vector<const Column*> as_numbers_;
  std::size_t set_ = kNowhere;
  std::size_t set_end_ = 0;
};

}  // namespace

std::vector<const Column*> MarkLiteralUses(Pieces& pieces, Schema& schema) {
  return Marker(pieces, schema).Mark();
}

}  // namespace kvraedi::sqlite
