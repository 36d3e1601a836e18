#include "platform/sqlite/table_definition.h"

#include <algorithm>
#include <vector>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/numbers.h"
#include "platform/sqlite/translation.h"

namespace kvraedi::sqlite {
namespace {

[[noreturn]] void ThrowDefinition() {
  throw Error(kErrorDatabase, "SQLite", "La definición no es correcta o no se admite");
}

bool IsNoParenthesis(const Piece& piece) {
  return !IsMark(piece.token, "(") && !IsMark(piece.token, ")");
}

struct ColumnDefinition {
  std::string name;
  std::string type;
  ColumnKind kind = ColumnKind::kUnknown;
  bool not_null = false;
  bool identity = false;
  bool primary_key = false;
  bool unique = false;
  std::string default_value;
  std::string computed;  // its expression, when it has one
};

using Columns = std::vector<ColumnDefinition>;

struct KeyDefinition {
  bool primary = false;
  std::vector<std::string> columns;  // names, folded
};

/// Reads a definition from front to back.
class Parser {
 public:
  Parser(Pieces pieces, Schema& schema, const ScalarFunctions& functions)
      : pieces_(std::move(pieces)), schema_(schema), functions_(functions) {}

  std::string Translate() {
    const bool create = Take("CREATE");
    if (create && Take("TABLE")) return CreateTable();
    if (create && Take("VIEW")) return CreateView();
    if (create) return CreateIndex();
    if (Take("ALTER")) return AlterTable();
    if (Take("TRUNCATE") && Take("TABLE")) return "DELETE FROM " + Quoted(TakeName());
    if (!Take("DROP")) ThrowDefinition();
    if (Take("INDEX")) return DropIndex();
    return Drop();
  }

 private:
  bool Ends() const { return at_ >= pieces_.size(); }

  bool Take(std::string_view word) {
    if (!WordAt(pieces_, at_, word)) return false;
    ++at_;
    return true;
  }

  bool TakeMark(std::string_view mark) {
    if (!MarkAt(pieces_, at_, mark)) return false;
    ++at_;
    return true;
  }

  void Demand(bool found) const {
    if (!found) ThrowDefinition();
  }

  /// The last part of a name; "dbo." is dropped.
  std::string TakeName() {
    Demand(NameAt(pieces_, at_));
    while (MarkAt(pieces_, at_ + 1, ".")) at_ += 2;
    Demand(NameAt(pieces_, at_));
    return NameOf(pieces_[at_++].token);
  }

  std::string TranslateStretch(std::size_t begin, std::size_t end) {
    const auto first = pieces_.begin();
    return TranslatePieces(
        {first + static_cast<std::ptrdiff_t>(begin), first + static_cast<std::ptrdiff_t>(end)},
        schema_, functions_);
  }

  std::string CreateTable();
  std::string AlterTable();
  std::string CreateView();
  std::string CreateIndex();
  std::string DropIndex();
  std::string Drop();

  ColumnDefinition TakeColumn(const Columns& before);
  void TakeComputed(ColumnDefinition& column, const Columns& before);
  void TakeType(ColumnDefinition& column);
  bool TakeOption(ColumnDefinition& column);
  std::string TakeDefault(const ColumnDefinition& column);
  void TakeClustered();
  std::string TakeOrder();
  bool StartsKey() const;
  KeyDefinition TakeKey();

  Pieces pieces_;
  Schema& schema_;
  const ScalarFunctions& functions_;
  std::string table_;  // that columns are defined of
  std::size_t at_ = 0;
};

void Parser::TakeType(ColumnDefinition& column) {
  const std::string name = TakeName();
  std::vector<int> sizes;
  bool max = false;
  if (MarkAt(pieces_, at_, "(")) {
    const std::size_t close = Closing(pieces_, at_);
    for (; at_ < close; ++at_) {
      const auto size = ParseInteger(pieces_[at_].token.text);
      if (size) sizes.push_back(static_cast<int>(*size));
      max = max || WordAt(pieces_, at_, "MAX");
    }
    ++at_;
  }
  column.type = Declared(name, std::move(sizes), max);
  column.kind = TypeOfDeclared(column.type).kind;
}

/// A value in parentheses, a call, or one signed piece. Always written in parentheses.
std::string Parser::TakeDefault(const ColumnDefinition& column) {
  const auto place = [this](std::size_t i) {
    return pieces_.begin() + static_cast<std::ptrdiff_t>(i);
  };
  const std::size_t begin = at_;
  if (MarkAt(pieces_, at_, "+") || MarkAt(pieces_, at_, "-")) ++at_;
  Demand(!Ends());
  at_ = MarkAt(pieces_, at_, "(") ? Closing(pieces_, at_) + 1 : at_ + 1;
  if (MarkAt(pieces_, at_, "(")) at_ = Closing(pieces_, at_) + 1;
  const bool alone = std::count_if(place(begin), place(at_), IsNoParenthesis) == 1;
  const auto value = std::find_if(place(begin), place(at_), IsNoParenthesis);
  if (alone && IsLiteral(*value)) {
    const bool is_text = value->token.kind == TokenKind::kText;
    const Column stored{table_, column.name, "", TypeOfDeclared(column.type)};
    value->written = ToSql(Evaluate({value->token.text, is_text}, {stored.type, &stored}));
  }
  return "(" + TranslateStretch(begin, at_) + ")";
}

void Parser::TakeClustered() {
  while (Take("CLUSTERED") || Take("NONCLUSTERED")) {
  }
}

std::string Parser::TakeOrder() {
  if (Take("DESC")) return " DESC";
  Take("ASC");
  return "";
}

bool Parser::TakeOption(ColumnDefinition& column) {
  if (Take("NOT")) {
    Demand(Take("NULL"));
    column.not_null = true;
  } else if (Take("NULL")) {
    column.not_null = false;
  } else if (Take("CONSTRAINT") || Take("COLLATE")) {
    TakeName();
  } else if (Take("DEFAULT")) {
    column.default_value = TakeDefault(column);
  } else if (Take("IDENTITY")) {
    column.identity = true;
    if (MarkAt(pieces_, at_, "(")) at_ = Closing(pieces_, at_) + 1;
  } else if (Take("PRIMARY")) {
    Demand(Take("KEY"));
    column.primary_key = true;
    TakeClustered();
  } else if (Take("UNIQUE")) {
    column.unique = true;
    TakeClustered();
  } else {
    return false;
  }
  return true;
}

/// An expression over columns that stand before; the first of them gives its type.
void Parser::TakeComputed(ColumnDefinition& column, const Columns& before) {
  const std::size_t begin = at_;
  for (; !Ends() && !MarkAt(pieces_, at_, ",") && !WordAt(pieces_, at_, "PERSISTED"); ++at_) {
    if (MarkAt(pieces_, at_, ")")) break;
    if (MarkAt(pieces_, at_, "(")) at_ = Closing(pieces_, at_);
  }
  auto source = before.end();
  for (std::size_t i = begin; i < at_ && source == before.end(); ++i) {
    if (!NameAt(pieces_, i)) continue;
    const std::string name = Folded(NameOf(pieces_[i].token));
    source = std::find_if(before.begin(), before.end(),
                          [&name](const ColumnDefinition& c) { return Folded(c.name) == name; });
  }
  Demand(source != before.end());
  column.type = source->type;
  column.kind = source->kind;
  column.computed = TranslateStretch(begin, at_);
  Take("PERSISTED");
}

ColumnDefinition Parser::TakeColumn(const Columns& before) {
  ColumnDefinition column;
  column.name = TakeName();
  if (Take("AS")) {
    TakeComputed(column, before);
    return column;
  }
  TakeType(column);
  while (TakeOption(column)) {
  }
  return column;
}

bool Parser::StartsKey() const {
  std::size_t i = at_;
  if (WordAt(pieces_, i, "CONSTRAINT")) i += 2;
  return WordAt(pieces_, i, "PRIMARY") || WordAt(pieces_, i, "UNIQUE");
}

KeyDefinition Parser::TakeKey() {
  if (Take("CONSTRAINT")) TakeName();
  KeyDefinition key;
  key.primary = Take("PRIMARY");
  Demand(key.primary ? Take("KEY") : Take("UNIQUE"));
  TakeClustered();
  Demand(TakeMark("("));
  do {
    key.columns.push_back(Folded(TakeName()));
    TakeOrder();
  } while (TakeMark(","));
  Demand(TakeMark(")"));
  if (Take("WITH")) at_ = Closing(pieces_, at_) + 1;
  if (Take("ON")) TakeName();
  return key;
}

std::string WriteColumn(const ColumnDefinition& column) {
  const std::string name = Quoted(column.name);
  if (column.identity) return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
  std::string text = name + " " + column.type;
  const std::string_view collation = CollationOf(column.kind);
  if (!collation.empty()) text += " COLLATE " + std::string(collation);
  if (!column.computed.empty()) return text + " GENERATED ALWAYS AS (" + column.computed + ")";
  if (column.not_null || column.primary_key) text += " NOT NULL";
  if (column.unique) text += " UNIQUE";
  if (!column.default_value.empty()) text += " DEFAULT " + column.default_value;
  return text;
}

std::string Listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + Quoted(name);
  return "(" + list + ")";
}

/// An identity column is SQLite's primary key; any other key beside it is a unique one.
std::string WriteKeys(const std::vector<KeyDefinition>& keys, const Columns& columns) {
  const auto identity = std::find_if(columns.begin(), columns.end(),
                                     [](const ColumnDefinition& c) { return c.identity; });
  std::string text;
  for (const KeyDefinition& key : keys) {
    const bool same = identity != columns.end() && key.columns.size() == 1 &&
                      key.columns[0] == Folded(identity->name);
    if (same) continue;
    const bool primary = key.primary && identity == columns.end();
    text += (primary ? ", PRIMARY KEY " : ", UNIQUE ") + Listed(key.columns);
  }
  return text;
}

void ApplyKeys(std::vector<KeyDefinition>& keys, Columns& columns) {
  for (ColumnDefinition& column : columns) {
    if (column.primary_key) keys.push_back({true, {Folded(column.name)}});
    for (const KeyDefinition& key : keys) {
      const bool member =
          std::count(key.columns.begin(), key.columns.end(), Folded(column.name)) != 0;
      if (key.primary && member) column.not_null = true;
    }
  }
}

std::string Parser::CreateTable() {
  const std::string name = table_ = TakeName();
  Demand(TakeMark("("));
  Columns columns;
  std::vector<KeyDefinition> keys;
  do {
    if (StartsKey()) {
      keys.push_back(TakeKey());
    } else {
      columns.push_back(TakeColumn(columns));
    }
  } while (TakeMark(","));
  Demand(TakeMark(")"));
  ApplyKeys(keys, columns);
  std::string text;
  for (const ColumnDefinition& column : columns) {
    text += (text.empty() ? "" : ", ") + WriteColumn(column);
  }
  return (name.front() == '#' ? "CREATE TEMP TABLE " : "CREATE TABLE ") + Quoted(name) + " (" +
         text + WriteKeys(keys, columns) + ")";
}

/// Only columns can be added.
std::string Parser::AlterTable() {
  Demand(Take("TABLE"));
  table_ = TakeName();
  const std::string table = Quoted(table_);
  Demand(Take("ADD") && !StartsKey());
  std::string text;
  do {
    text += "ALTER TABLE " + table + " ADD COLUMN " + WriteColumn(TakeColumn({})) + "; ";
  } while (TakeMark(","));
  Demand(Ends());
  return text;
}

std::string Parser::CreateView() {
  const std::string name = Quoted(TakeName());
  Demand(Take("AS"));
  return "CREATE VIEW " + name + " AS " + TranslateStretch(at_, pieces_.size());
}

std::string IndexName(const std::string& table, const std::string& index) {
  return Quoted(table + "_" + index);
}

std::string CompanionName(const std::string& table, const std::string& index) {
  return Quoted(table + "_" + index + "_numero");
}

std::string Parser::CreateIndex() {
  const bool unique = Take("UNIQUE");
  TakeClustered();
  Demand(Take("INDEX"));
  const std::string index = TakeName();
  Demand(Take("ON"));
  const std::string table = TakeName();
  Demand(TakeMark("("));
  const std::string first = TakeName();
  std::string rest = TakeOrder();
  while (TakeMark(",")) {
    rest += ", " + Quoted(TakeName());
    rest += TakeOrder();
  }
  Demand(TakeMark(")") && !WordAt(pieces_, at_, "WHERE"));
  const std::string target = " ON " + Quoted(table) + " (" + Quoted(first);
  std::string text = (unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + IndexName(table, index) +
                     target + rest + ")";
  const Column* const column = schema_.Find(table).Find(Folded(first));
  if (column == nullptr || column->type.kind != ColumnKind::kText) return text;
  return text + "; CREATE INDEX " + CompanionName(table, index) + target + " COLLATE " +
         std::string(kNumberCollation) + rest + ")";
}

/// DROP INDEX index ON table, or DROP INDEX table.index.
std::string Parser::DropIndex() {
  const std::string exists = Take("IF") && Take("EXISTS") ? "IF EXISTS " : "";
  Demand(NameAt(pieces_, at_));
  std::string table;
  if (MarkAt(pieces_, at_ + 1, ".")) {
    table = NameOf(pieces_[at_].token);
    at_ += 2;
  }
  const std::string index = TakeName();
  if (Take("ON")) table = TakeName();
  return "DROP INDEX " + exists + IndexName(table, index) + "; DROP INDEX IF EXISTS " +
         CompanionName(table, index);
}

std::string Parser::Drop() {
  const bool view = Take("VIEW");
  Demand(view || Take("TABLE"));
  const std::string exists = Take("IF") && Take("EXISTS") ? "IF EXISTS " : "";
  std::string text;
  do {
    text += (view ? "DROP VIEW " : "DROP TABLE ") + exists + Quoted(TakeName()) + "; ";
  } while (TakeMark(","));
  Demand(Ends());
  return text;
}

}  // namespace

std::string TranslateDefinition(std::string_view sql, Schema& schema,
                                const ScalarFunctions& functions) {
  Pieces pieces = ReadPieces(sql);
  if (WordAt(pieces, 1, "TRIGGER")) return std::string(sql);
  return Parser(std::move(pieces), schema, functions).Translate();
}

}  // namespace kvraedi::sqlite
