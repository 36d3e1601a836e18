#include "platform/sqlite/piece.h"

#include <algorithm>
#include <array>

#include "kvraedi/error.h"

namespace kvraedi::sqlite {
namespace {

// Words that never name a table, column or alias; in order.
constexpr std::array<std::string_view, 52> kKeywords = {
    "ALL",       "AND",     "AS",     "ASC",   "BEGIN",    "BETWEEN",   "BY",     "CASE",
    "CROSS",     "DEFAULT", "DELETE", "DESC",  "DISTINCT", "ELSE",      "END",    "EXCEPT",
    "EXISTS",    "FROM",    "FULL",   "GROUP", "HAVING",   "IN",        "INNER",  "INSERT",
    "INTERSECT", "INTO",    "IS",     "JOIN",  "LEFT",     "LIKE",      "NOT",    "NULL",
    "ON",        "OR",      "ORDER",  "OUTER", "OVER",     "PARTITION", "RIGHT",  "SELECT",
    "SET",       "TABLE",   "THEN",   "TOP",   "UNION",    "UNIQUE",    "UPDATE", "VALUES",
    "WHEN",      "WHERE",   "WITH",   "WITHIN"};

bool IsKeyword(std::string_view word) {
  std::string upper(word);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  }
  return std::binary_search(kKeywords.begin(), kKeywords.end(), std::string_view(upper));
}

}  // namespace

Pieces ReadPieces(std::string_view sql, const std::vector<Literal>& literals) {
  Pieces pieces;
  Lexer lexer(sql);
  std::size_t next = 0;
  for (Token token = lexer.Next(); token.kind != TokenKind::kEnd; token = lexer.Next()) {
    if (IsMark(token, ";")) break;
    Piece piece;
    piece.token = token;
    if (next < literals.size() && literals[next].written.data() == token.text.data()) {
      piece.literal = static_cast<int>(next++);
    }
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

Piece OwnPiece(TokenKind kind, std::string_view text) {
  Piece piece;
  piece.token = {kind, text};
  return piece;
}

bool IsLiteral(const Piece& piece) {
  return piece.token.kind == TokenKind::kText || piece.token.kind == TokenKind::kNumber;
}

bool IsName(const Piece& piece) {
  return piece.token.kind == TokenKind::kQuotedName ||
         (piece.token.kind == TokenKind::kWord && !IsKeyword(piece.token.text));
}

bool WordAt(const Pieces& pieces, std::size_t i, std::string_view upper) {
  return i < pieces.size() && IsWord(pieces[i].token, upper);
}

bool MarkAt(const Pieces& pieces, std::size_t i, std::string_view mark) {
  return i < pieces.size() && IsMark(pieces[i].token, mark);
}

bool NameAt(const Pieces& pieces, std::size_t i) { return i < pieces.size() && IsName(pieces[i]); }

std::size_t Closing(const Pieces& pieces, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < pieces.size(); ++i) {
    if (MarkAt(pieces, i, "(")) ++depth;
    if (MarkAt(pieces, i, ")") && --depth == 0) return i;
  }
  throw Error(kErrorDatabase, "SQLite", "Paréntesis sin cerrar en la sentencia");
}

std::vector<std::pair<std::size_t, std::size_t>> SplitAtCommas(const Pieces& pieces,
                                                               std::size_t begin, std::size_t end) {
  std::vector<std::pair<std::size_t, std::size_t>> parts;
  std::size_t first = begin;
  for (std::size_t i = begin; i < end; ++i) {
    if (MarkAt(pieces, i, "(")) i = Closing(pieces, i);
    if (!MarkAt(pieces, i, ",")) continue;
    parts.emplace_back(first, i);
    first = i + 1;
  }
  if (begin != end) parts.emplace_back(first, end);
  return parts;
}

std::size_t FindWord(const Pieces& pieces, std::size_t begin, std::size_t end,
                     std::initializer_list<std::string_view> words) {
  for (std::size_t i = begin; i < end; ++i) {
    if (MarkAt(pieces, i, "("))
      i = Closing(pieces, i);
    else if (MarkAt(pieces, i, ")"))
      return end;
    for (const std::string_view word : words) {
      if (WordAt(pieces, i, word)) return i;
    }
  }
  return end;
}

void ThrowUnsupported(std::string_view what) {
  throw Error(kErrorDatabase, "SQLite",
              "La base de datos integrada no admite " + std::string(what));
}

}  // namespace kvraedi::sqlite
