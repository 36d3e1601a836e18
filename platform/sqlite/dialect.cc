#include "platform/sqlite/dialect.h"

#include <algorithm>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/operands.h"
#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {
namespace {

class Marker {
 public:
  Marker(Pieces& pieces, Schema& schema)
      : pieces_(pieces), scopes_(pieces), operands_(pieces_, scopes_, schema) {}

  void Mark() {
    MarkVerb();
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      const Token& token = pieces_[i].token;
      if (token.kind == TokenKind::kWord || token.kind == TokenKind::kQuotedName) MarkWord(i);
      if (token.kind == TokenKind::kVariable) MarkVariable(i);
      if (IsMark(token, "+") || IsMark(token, "-")) MarkSum(i);
      if (IsMark(token, "!<")) pieces_[i].written = ">=";
      if (IsMark(token, "!>")) pieces_[i].written = "<=";
    }
  }

 private:
  void Write(std::size_t i, std::string text) { pieces_[i].written = std::move(text); }

  void Drop(std::size_t begin, std::size_t end) {
    for (; begin < end; ++begin) Write(begin, "");
  }

  bool CallAt(std::size_t i, std::string_view name) const {
    return WordAt(pieces_, i, name) && MarkAt(pieces_, i + 1, "(");
  }

  /// INSERT and DELETE may leave out INTO and FROM.
  void MarkVerb() {
    if (WordAt(pieces_, 0, "INSERT") && !WordAt(pieces_, 1, "INTO")) Write(0, "INSERT INTO");
    if (WordAt(pieces_, 0, "DELETE") && NameAt(pieces_, 1)) Write(0, "DELETE FROM");
    if (!WordAt(pieces_, 0, "SELECT") && !WordAt(pieces_, 0, "INSERT") &&
        WordAt(pieces_, 1, "TOP")) {
      ThrowUnsupported("TOP en UPDATE o DELETE");
    }
    if (WordAt(pieces_, 0, "UPDATE") &&
        FindWord(pieces_, 1, pieces_.size(), {"FROM"}) != pieces_.size()) {
      ThrowUnsupported("UPDATE con FROM");
    }
  }

  void MarkWord(std::size_t i) {
    if (WordAt(pieces_, i, "SELECT")) MarkTop(i);
    // Without statistics SQLite would rather read a whole table in the order of the groups than
    // search its rows in an index and sort them; the sign, which changes no value, forbids that.
    if (WordAt(pieces_, i, "GROUP") && WordAt(pieces_, i + 1, "BY")) pieces_[i + 1].after = "+";
    if (CallAt(i, "ISNULL")) Write(i, "ifnull");
    if (CallAt(i, "GETDATE")) Write(i, "kvr_ahora");
    if (CallAt(i, "SCOPE_IDENTITY")) Write(i, "last_insert_rowid");
    if (CallAt(i, "CONVERT")) MarkConvert(i);
    if (CallAt(i, "CAST")) MarkCast(i);
    if (CallAt(i, "WITH")) Drop(i, Closing(pieces_, i + 1) + 1);
    if (MarkAt(pieces_, i + 1, ".") && Folded(NameOf(pieces_[i].token)) == "dbo") {
      const bool has_database = i > 1 && MarkAt(pieces_, i - 1, ".") && NameAt(pieces_, i - 2);
      Drop(has_database ? i - 2 : i, i + 2);
    }
  }

  void MarkVariable(std::size_t i) {
    if (Same(pieces_[i].token.text, "@@IDENTITY")) {
      Write(i, "last_insert_rowid()");
    } else if (Same(pieces_[i].token.text, "@@ROWCOUNT")) {
      Write(i, "changes()");
    } else {
      ThrowUnsupported("la variable " + std::string(pieces_[i].token.text));
    }
  }

  /// SELECT TOP n ... becomes SELECT ... LIMIT n.
  void MarkTop(std::size_t select) {
    std::size_t top = select + 1;
    if (WordAt(pieces_, top, "DISTINCT") || WordAt(pieces_, top, "ALL")) ++top;
    if (!WordAt(pieces_, top, "TOP")) return;
    const bool enclosed = MarkAt(pieces_, top + 1, "(");
    const std::size_t number = enclosed ? top + 2 : top + 1;
    const std::size_t behind = enclosed ? Closing(pieces_, top + 1) + 1 : number + 1;
    const bool plain = number < pieces_.size() &&
                       pieces_[number].token.kind == TokenKind::kNumber &&
                       behind == number + (enclosed ? 2 : 1);
    if (!plain || WordAt(pieces_, behind, "PERCENT") || WordAt(pieces_, behind, "WITH")) {
      ThrowUnsupported("TOP con otra cosa que un número de filas");
    }
    const std::size_t end = EndOfSelect(behind);
    pieces_[end - 1].after += " LIMIT " + std::string(pieces_[number].token.text);
    Drop(top, behind);
  }

  /// The place behind the last piece of a select without UNION.
  std::size_t EndOfSelect(std::size_t i) const {
    for (; i < pieces_.size() && !MarkAt(pieces_, i, ")"); ++i) {
      for (const char* word : {"UNION", "EXCEPT", "INTERSECT"}) {
        if (WordAt(pieces_, i, word)) ThrowUnsupported("TOP dentro de UNION");
      }
      if (MarkAt(pieces_, i, "(")) i = Closing(pieces_, i);
    }
    return i;
  }

  /// CONVERT(type, value).
  void MarkConvert(std::size_t i) {
    const std::size_t close = Closing(pieces_, i + 1);
    const auto parts = SplitAtCommas(pieces_, i + 2, close);
    if (parts.size() != 2) ThrowUnsupported("CONVERT con estilo");
    Drop(i, parts[1].first);
    WriteConversion(i, close, parts[0].first, parts[0].second);
  }

  /// CAST(value AS type).
  void MarkCast(std::size_t i) {
    const std::size_t close = Closing(pieces_, i + 1);
    const std::size_t as = FindWord(pieces_, i + 2, close, {"AS"});
    Drop(i, i + 2);
    Drop(as, close);
    WriteConversion(i, close, as + 1, close);
  }

  void WriteConversion(std::size_t begin, std::size_t close, std::size_t type, std::size_t end) {
    if (type >= end) ThrowUnsupported("una conversión sin tipo");
    std::vector<std::string> sizes;
    for (std::size_t i = type + 1; i < end; ++i) {
      if (pieces_[i].token.kind == TokenKind::kNumber) sizes.emplace_back(pieces_[i].token.text);
    }
    const SqlType& target = FindSqlType(NameOf(pieces_[type].token));
    switch (target.kind) {
      case ColumnKind::kInteger:
        return Surround(begin, close, "CAST(", " AS INTEGER)");
      case ColumnKind::kReal:
        return WriteReal(begin, close, target, sizes);
      case ColumnKind::kDate:
        return Surround(begin, close, "kvr_fecha(", ") COLLATE " + std::string(kDateCollation));
      case ColumnKind::kDay:
        return Surround(begin, close, "kvr_dia(", ") COLLATE " + std::string(kDateCollation));
      case ColumnKind::kBlob:
        return Surround(begin, close, "CAST(", " AS BLOB)");
      default:
        return WriteText(begin, close, sizes);
    }
  }

  void WriteReal(std::size_t begin, std::size_t close, const SqlType& target,
                 const std::vector<std::string>& sizes) {
    if (target.name == "float" || target.name == "real") {
      return Surround(begin, close, "CAST(", " AS REAL)");
    }
    const bool money = target.name == "money" || target.name == "smallmoney";
    const std::string places = money ? "4" : sizes.size() > 1 ? sizes[1] : "0";
    Surround(begin, close, "ROUND(CAST(", " AS REAL), " + places + ")");
  }

  void WriteText(std::size_t begin, std::size_t close, const std::vector<std::string>& sizes) {
    const std::string collate = " COLLATE " + std::string(kTextCollation);
    if (sizes.empty()) return Surround(begin, close, "CAST(kvr_texto(", ") AS TEXT)" + collate);
    Surround(begin, close, "substr(CAST(kvr_texto(", ") AS TEXT), 1, " + sizes[0] + ")" + collate);
  }

  void Surround(std::size_t begin, std::size_t close, std::string before, std::string behind) {
    Write(begin, std::move(before));
    Write(close, std::move(behind));
  }

  /// "+" between texts joins them; dates are nothing that SQLite could add to.
  void MarkSum(std::size_t i) {
    const Stretch before = operands_.Before(i);
    if (before.Empty()) return;  // a sign
    const ColumnKind left = operands_.KindOf(before);
    const ColumnKind right = operands_.KindOf(operands_.After(i));
    if (IsDate(left) || IsDate(right)) ThrowUnsupported("sumas y restas de fechas");
    if (IsMark(pieces_[i].token, "-")) return;
    const bool text = left == ColumnKind::kText || right == ColumnKind::kText;
    if (text && (IsNumber(left) || IsNumber(right))) ThrowUnsupported("sumas de texto y número");
    if (!text && !IsNumber(left) && !IsNumber(right)) {
      ThrowUnsupported("una suma de la que no se sabe si es de textos o de números");
    }
    if (text) Write(i, "||");
  }

  Pieces& pieces_;
  Scopes scopes_;
  Operands operands_;
};

}  // namespace

void MarkDialect(Pieces& pieces, Schema& schema) { Marker(pieces, schema).Mark(); }

}  // namespace kvraedi::sqlite
