#include "platform/sqlite/keyed_query.h"

#include "kvraedi/error.h"
#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {
namespace {

[[noreturn]] void ThrowReadOnly() {
  throw Error(kErrorDatabase, "SQLite", "Las filas de la sentencia no se pueden modificar");
}

/// The token after the FROM of a list of plain columns.
Token TableOf(std::string_view sql) {
  Lexer lexer(sql);
  Token token = lexer.Next();
  while (token.kind != TokenKind::kEnd && !IsWord(token, "FROM")) {
    if (IsMark(token, "(")) ThrowReadOnly();
    token = lexer.Next();
  }
  return lexer.Next();
}

}  // namespace

KeyedQuery WithRowKey(std::string_view sql) {
  Lexer lexer(sql);
  const Token select = lexer.Next();
  const Token column = lexer.Next();
  const Token table = TableOf(sql);
  const bool is_name = table.kind == TokenKind::kWord || table.kind == TokenKind::kQuotedName;
  if (!IsWord(select, "SELECT") || IsWord(column, "DISTINCT") || IsWord(column, "TOP") ||
      !is_name) {
    ThrowReadOnly();
  }
  const std::size_t columns = static_cast<std::size_t>(column.text.data() - sql.data());
  return {"SELECT rowid, " + std::string(sql.substr(columns)), NameOf(table)};
}

}  // namespace kvraedi::sqlite
