#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/lexer.h"
#include "platform/sqlite/literal.h"

namespace kvraedi::sqlite {

/// A token of a statement on its way to SQLite: what is written before, instead of and after
/// it.
struct Piece {
  Token token;
  int literal = -1;  // its place among the statement's literals; -1 for one that stays as it is
  Beside beside;     // of a literal
  std::string before;
  std::optional<std::string> written;  // empty text: left out
  std::string after;
  const Column* keeper = nullptr;  // ends a value that kvr_guarda checks for this column
};
using Pieces = std::vector<Piece>;

/// The tokens of `sql` up to its ";". `literals` are those of its shape and point into `sql`.
Pieces ReadPieces(std::string_view sql, const std::vector<Literal>& literals = {});

/// A mark or word of the translator's own; `text` must be a constant.
Piece OwnPiece(TokenKind kind, std::string_view text);

bool IsLiteral(const Piece& piece);
/// Whether the piece can be the name of a table, column or alias.
bool IsName(const Piece& piece);

/// Safe look-ups: outside the pieces nothing matches.
bool WordAt(const Pieces& pieces, std::size_t i, std::string_view upper);
bool MarkAt(const Pieces& pieces, std::size_t i, std::string_view mark);
bool NameAt(const Pieces& pieces, std::size_t i);

/// The ")" that closes the "(" at `open`; raises when there is none.
std::size_t Closing(const Pieces& pieces, std::size_t open);

/// The stretches between the commas of [begin, end), as pairs of first place and place behind.
std::vector<std::pair<std::size_t, std::size_t>> SplitAtCommas(const Pieces& pieces,
                                                               std::size_t begin, std::size_t end);

/// The next of `words` from `begin` on that does not stand in deeper
/// parentheses; `end` when there is none before it or before a closing parenthesis.
std::size_t FindWord(const Pieces& pieces, std::size_t begin, std::size_t end,
                     std::initializer_list<std::string_view> words);

[[noreturn]] void ThrowUnsupported(std::string_view what);

}  // namespace kvraedi::sqlite
