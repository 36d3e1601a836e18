#include "platform/sqlite/operands.h"

#include <algorithm>
#include <array>

namespace kvraedi::sqlite {
namespace {

using enum ColumnKind;

struct CallKind {
  std::string_view name;
  ColumnKind kind;
};

constexpr CallKind kCalls[] = {
    {"ABS", kReal},     {"AVG", kReal},       {"COUNT", kInteger}, {"LEN", kInteger},
    {"ROUND", kReal},   {"SUM", kReal},       {"LOWER", kText},    {"LTRIM", kText},
    {"REPLACE", kText}, {"RTRIM", kText},     {"TRIM", kText},     {"UPPER", kText},
    {"SUBSTR", kText},  {"SUBSTRING", kText}, {"GETDATE", kDate},  {"OBJECT_ID", kInteger}};

// Calls that give one of their arguments.
constexpr std::array<std::string_view, 5> kChoices = {"COALESCE", "ISNULL", "MAX", "MIN", "NULLIF"};

bool AnyMarkAt(const Pieces& pieces, std::size_t i, std::string_view marks) {
  return i < pieces.size() && pieces[i].token.kind == TokenKind::kMark &&
         pieces[i].token.text.size() == 1 &&
         marks.find(pieces[i].token.text.front()) != std::string_view::npos;
}

bool Opens(const Pieces& pieces, std::size_t i) {
  return MarkAt(pieces, i, "(") || WordAt(pieces, i, "CASE");
}

bool Closes(const Pieces& pieces, std::size_t i) {
  return MarkAt(pieces, i, ")") || WordAt(pieces, i, "END");
}

/// The ")" or END that closes what opens at `i`; `i` itself when nothing does.
std::size_t EndOfGroup(const Pieces& pieces, std::size_t i) {
  int depth = 0;
  for (std::size_t at = i; at < pieces.size(); ++at) {
    if (Opens(pieces, at)) ++depth;
    if (Closes(pieces, at)) --depth;
    if (depth <= 0) return at;
  }
  return i;
}

/// The "(" or CASE that opens what closes at `i`; `i` itself when nothing does.
std::size_t StartOfGroup(const Pieces& pieces, std::size_t i) {
  int depth = 0;
  for (std::size_t at = i + 1; at-- > 0;) {
    if (Closes(pieces, at)) ++depth;
    if (Opens(pieces, at)) --depth;
    if (depth <= 0) return at;
  }
  return i;
}

}  // namespace

bool IsComparison(const Pieces& pieces, std::size_t i) {
  for (const char* mark : {"=", "<>", "!=", "<", ">", "<=", ">=", "!<", "!>"}) {
    if (MarkAt(pieces, i, mark)) return true;
  }
  return false;
}

bool Operands::EndsExpression(std::size_t i) const {
  const bool keyword = pieces_[i].token.kind == TokenKind::kWord && !IsName(pieces_[i]);
  return keyword || IsComparison(pieces_, i) || AnyMarkAt(pieces_, i, "(),;");
}

Stretch Operands::Before(std::size_t i) const {
  std::size_t begin = i;
  while (begin > 0) {
    const std::size_t start = StartOfGroup(pieces_, begin - 1);
    if (start == begin - 1 && EndsExpression(start)) break;
    begin = start;
  }
  return {begin, i};
}

Stretch Operands::After(std::size_t i) const {
  std::size_t end = i + 1;
  while (end < pieces_.size()) {
    const std::size_t last = EndOfGroup(pieces_, end);
    if (last == end && EndsExpression(end)) break;
    end = last + 1;
  }
  return {i + 1, end};
}

ColumnKind Operands::KindOf(Stretch stretch) const {
  while (!stretch.Empty() && AnyMarkAt(pieces_, stretch.begin, "+-")) ++stretch.begin;
  if (stretch.Empty()) return kUnknown;
  const auto [begin, end] = stretch;
  if (end - begin == 1 && IsLiteral(pieces_[begin])) {
    return pieces_[begin].token.kind == TokenKind::kText ? kText : kReal;
  }
  const auto column = scopes_.ColumnStartingAt(begin, schema_);
  if (column && column->last + 1 == end) return column->Kind();
  if (Opens(pieces_, begin) && EndOfGroup(pieces_, begin) + 1 == end) return KindOfGroup(stretch);
  if (MarkAt(pieces_, begin + 1, "(") && EndOfGroup(pieces_, begin + 1) + 1 == end) {
    return KindOfCall(begin + 1, end - 1);
  }
  return KindOfTerms(stretch);
}

/// An expression or a query in parentheses, or a CASE, which gives what its first THEN does.
ColumnKind Operands::KindOfGroup(Stretch stretch) const {
  const auto [begin, end] = stretch;
  if (WordAt(pieces_, begin, "CASE")) {
    return KindOf(After(FindWord(pieces_, begin, end, {"THEN"})));
  }
  return WordAt(pieces_, begin + 1, "SELECT") ? KindOfQuery({begin + 2, end - 1})
                                              : KindOf({begin + 1, end - 1});
}

ColumnKind Operands::KindOfCall(std::size_t open, std::size_t close) const {
  const std::string_view name = pieces_[open - 1].token.text;
  if (Same(name, "CAST")) {
    const std::size_t as = FindWord(pieces_, open + 1, close, {"AS"});
    return NameAt(pieces_, as + 1) ? FindSqlType(NameOf(pieces_[as + 1].token)).kind : kUnknown;
  }
  if (Same(name, "CONVERT")) {
    return NameAt(pieces_, open + 1) ? FindSqlType(NameOf(pieces_[open + 1].token)).kind : kUnknown;
  }
  const auto is = [name](std::string_view candidate) { return Same(name, candidate); };
  if (std::any_of(kChoices.begin(), kChoices.end(), is)) {
    for (const auto& [first, behind] : SplitAtCommas(pieces_, open + 1, close)) {
      const ColumnKind kind = KindOf({first, behind});
      if (kind != kUnknown) return kind;
    }
    return kUnknown;
  }
  const auto* const call = std::find_if(std::begin(kCalls), std::end(kCalls),
                                        [&](const CallKind& known) { return is(known.name); });
  return call == std::end(kCalls) ? kUnknown : call->kind;
}

/// Of the first column of a select; `stretch` begins behind that word.
ColumnKind Operands::KindOfQuery(Stretch stretch) const {
  const std::size_t from = FindWord(pieces_, stretch.begin, stretch.end, {"FROM", "AS", "WHERE"});
  if (WordAt(pieces_, stretch.begin, "DISTINCT")) ++stretch.begin;
  if (WordAt(pieces_, stretch.begin, "TOP")) stretch.begin += 2;
  const auto items = SplitAtCommas(pieces_, stretch.begin, from);
  return items.empty() ? kUnknown : KindOf({items.front().first, items.front().second});
}

/// Of operands with operators between them: a number, unless the operators add something else.
ColumnKind Operands::KindOfTerms(Stretch stretch) const {
  for (std::size_t i = stretch.begin; i < stretch.end; ++i) {
    i = EndOfGroup(pieces_, i);
    if (AnyMarkAt(pieces_, i, "-*/%&|^")) return kReal;
    if (!MarkAt(pieces_, i, "+")) continue;
    const ColumnKind left = KindOf({stretch.begin, i});
    const ColumnKind right = KindOf({i + 1, stretch.end});
    return left == kUnknown || right == kText || IsDate(right) ? right : left;
  }
  return kUnknown;
}

}  // namespace kvraedi::sqlite
