#include "platform/sqlite/scalar_functions.h"

#include <sqlite3.h>

#include <algorithm>

#include "kvraedi/error.h"
#include "platform/sqlite/scopes.h"

namespace kvraedi::sqlite {
namespace {

constexpr int kDeepestCall = 8;

[[noreturn]] void Throw(std::string description) {
  throw Error(kErrorDatabase, "SQLite", std::move(description));
}

void Bind(const StatementPtr& statement, int index, const std::string& text) {
  sqlite3_bind_text(statement.get(), index, text.data(), static_cast<int>(text.size()),
                    SQLITE_TRANSIENT);
}

std::string TextAt(const StatementPtr& statement, int field) {
  return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), field));
}

/// The place of the name of "dbo.name" or "name" at `i`.
std::size_t LastName(const Pieces& pieces, std::size_t i) {
  while (MarkAt(pieces, i + 1, ".")) i += 2;
  if (!NameAt(pieces, i)) Throw("Falta el nombre de la función");
  return i;
}

bool IsDbo(const Pieces& pieces, std::size_t i) {
  return NameAt(pieces, i) && MarkAt(pieces, i + 1, ".") && NameAt(pieces, i + 2) &&
         Folded(NameOf(pieces[i].token)) == "dbo";
}

/// An unqualified column would be looked for in the function's own tables.
void CheckArgument(const Pieces& argument, const std::string& name) {
  for (std::size_t i = 0; i < argument.size(); ++i) {
    const bool qualified = (i > 0 && MarkAt(argument, i - 1, ".")) || MarkAt(argument, i + 1, ".");
    if (NameAt(argument, i) && !qualified && !MarkAt(argument, i + 1, "(")) {
      Throw("Los argumentos de dbo." + name + " deben ser valores o columnas calificadas");
    }
    if (WordAt(argument, i, "SELECT")) return;
  }
}

/// A value or a qualified column needs no parentheses.
bool IsSimple(const Pieces& argument) {
  return argument.size() == 1 || (argument.size() == 3 && MarkAt(argument, 1, "."));
}

/// Takes off the END that belongs to the function's BEGIN.
void DropClosingEnd(Pieces& body) {
  int open = 0;
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (WordAt(body, i, "CASE")) ++open;
    if (WordAt(body, i, "END")) --open;
  }
  if (open < 0) body.pop_back();
}

void Append(Pieces& target, const Pieces& source) {
  target.insert(target.end(), source.begin(), source.end());
}

void AppendEnclosed(Pieces& target, const Pieces& source) {
  target.push_back(OwnPiece(TokenKind::kMark, "("));
  Append(target, source);
  target.push_back(OwnPiece(TokenKind::kMark, ")"));
}

}  // namespace

void ScalarFunctions::Load() {
  functions_.clear();
  const StatementPtr table =
      database_.Prepare("SELECT 1 FROM sqlite_master WHERE name = 'kvr_funciones'");
  if (!database_.Step(table.get())) return;
  const StatementPtr rows = database_.Prepare("SELECT definicion FROM kvr_funciones");
  while (database_.Step(rows.get())) {
    FunctionPtr function = Parse(TextAt(rows, 0));
    functions_[function->name] = std::move(function);
  }
}

void ScalarFunctions::Define(std::string_view sql) {
  FunctionPtr function = Parse(sql);
  const Pieces start = ReadPieces(sql);
  const bool fresh = WordAt(start, 0, "CREATE") && !WordAt(start, 1, "OR");
  if (fresh && functions_.count(function->name) != 0) {
    Throw("Ya existe la función dbo." + function->name);
  }
  database_.Run(
      "CREATE TABLE IF NOT EXISTS kvr_funciones (nombre TEXT PRIMARY KEY, definicion TEXT)");
  const StatementPtr row = database_.Prepare("REPLACE INTO kvr_funciones VALUES (?, ?)");
  Bind(row, 1, function->name);
  Bind(row, 2, function->text);
  database_.Step(row.get());
  functions_[function->name] = std::move(function);
}

void ScalarFunctions::Drop(std::string_view sql) {
  const Pieces pieces = ReadPieces(sql);
  const bool if_exists = WordAt(pieces, 2, "IF");
  const std::string name = Folded(NameOf(pieces[LastName(pieces, if_exists ? 4 : 2)].token));
  if (functions_.erase(name) == 0) {
    if (!if_exists) Throw("No existe la función dbo." + name);
    return;
  }
  const StatementPtr row = database_.Prepare("DELETE FROM kvr_funciones WHERE nombre = ?");
  Bind(row, 1, name);
  database_.Step(row.get());
}

/// ... FUNCTION dbo.name (@p type, ...) RETURNS type AS BEGIN RETURN expression END
ScalarFunctions::FunctionPtr ScalarFunctions::Parse(std::string_view sql) {
  auto function = std::make_unique<Function>();
  function->text = sql;
  const Pieces pieces = ReadPieces(function->text);
  const std::size_t end = pieces.size();
  const std::size_t name = LastName(pieces, FindWord(pieces, 0, end, {"FUNCTION"}) + 1);
  function->name = Folded(NameOf(pieces[name].token));
  if (!MarkAt(pieces, name + 1, "(")) Throw("Faltan los parámetros de dbo." + function->name);
  const std::size_t close = Closing(pieces, name + 1);
  for (const auto& [first, behind] : SplitAtCommas(pieces, name + 2, close)) {
    if (first != behind) function->parameters.push_back(Folded(pieces[first].token.text));
  }
  const std::size_t start = FindWord(pieces, close + 1, end, {"RETURN"});
  const auto is_begin = [&](std::size_t i) { return WordAt(pieces, i, "BEGIN"); };
  if (start + 1 >= end || !(is_begin(start - 1) || WordAt(pieces, start - 1, "AS"))) {
    ThrowUnsupported("funciones con más que un RETURN de una expresión");
  }
  function->body.assign(pieces.begin() + static_cast<std::ptrdiff_t>(start) + 1, pieces.end());
  if (is_begin(start - 1)) DropClosingEnd(function->body);
  RenameAliases(*function);
  return function;
}

/// Gives the body's aliases names of its own, so that they cannot hide those of the arguments.
void ScalarFunctions::RenameAliases(Function& function) {
  Pieces& body = function.body;
  const auto sources = Scopes(body).AllSources();
  const auto rename = [&function](Piece& piece) {
    function.renamed.push_back("kvr_" + function.name + "_" + NameOf(piece.token));
    piece.token = {TokenKind::kWord, function.renamed.back()};
  };
  for (std::size_t i = 0; i < body.size(); ++i) {
    const bool qualifies = NameAt(body, i) && MarkAt(body, i + 1, ".");
    for (const Source& source : sources) {
      if (source.alias_place == 0) continue;
      if (source.alias_place == i || (qualifies && Folded(NameOf(body[i].token)) == source.alias)) {
        rename(body[i]);
        break;
      }
    }
  }
}

void ScalarFunctions::Inline(Pieces& pieces) const {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (IsDbo(pieces, i) && MarkAt(pieces, i + 3, "(")) {
      pieces = Expand(pieces, 0);
      return;
    }
  }
}

Pieces ScalarFunctions::Expand(const Pieces& pieces, int depth) const {
  if (depth > kDeepestCall) ThrowUnsupported("funciones que se llaman a sí mismas");
  Pieces result;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!IsDbo(pieces, i) || !MarkAt(pieces, i + 3, "(")) {
      result.push_back(pieces[i]);
      continue;
    }
    const std::string name = Folded(NameOf(pieces[i + 2].token));
    const std::size_t close = Closing(pieces, i + 3);
    std::vector<Pieces> arguments;
    for (const auto& [first, behind] : SplitAtCommas(pieces, i + 4, close)) {
      const auto at = [&pieces](std::size_t k) {
        return pieces.begin() + static_cast<std::ptrdiff_t>(k);
      };
      const Pieces argument(at(first), at(behind));
      CheckArgument(argument, name);
      arguments.push_back(Expand(argument, depth));
    }
    Append(result, Call(name, arguments, depth));
    i = close;
  }
  return result;
}

/// The function's expression in parentheses, the arguments in it.
Pieces ScalarFunctions::Call(const std::string& name, const std::vector<Pieces>& arguments,
                             int depth) const {
  const auto found = functions_.find(name);
  if (found == functions_.end()) Throw("No existe la función dbo." + name);
  const Function& function = *found->second;
  if (function.parameters.size() != arguments.size()) {
    Throw("Número de argumentos incorrecto para la función dbo." + name);
  }
  Pieces body;
  for (const Piece& piece : function.body) {
    const bool variable = piece.token.kind == TokenKind::kVariable;
    const auto parameter = variable ? std::find(function.parameters.begin(),
                                                function.parameters.end(), Folded(piece.token.text))
                                    : function.parameters.end();
    if (parameter == function.parameters.end()) {
      body.push_back(piece);
      continue;
    }
    const auto& argument =
        arguments[static_cast<std::size_t>(parameter - function.parameters.begin())];
    if (IsSimple(argument)) {
      Append(body, argument);
    } else {
      AppendEnclosed(body, argument);
    }
  }
  Pieces result;
  AppendEnclosed(result, Expand(body, depth + 1));
  return result;
}

}  // namespace kvraedi::sqlite
