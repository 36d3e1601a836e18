#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvraedi::sqlite {

enum class TokenKind : std::uint8_t {
  kEnd,
  kWord,        // a keyword or a plain name, "#temp" names too
  kQuotedName,  // [name] or "name"
  kText,        // 'text' or N'text', with its quotes
  kNumber,
  kBinary,    // 0x..
  kVariable,  // @name or @@name
  kMark,      // everything else, one operator each
};

/// A piece of a T-SQL text, as it was written. It points into that text.
struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;
};

/// Cuts a T-SQL text into tokens; blanks and comments are skipped. Raises on an open quote, bracket
/// or comment and on control characters.
class Lexer {
 public:
  explicit Lexer(std::string_view sql) : position_(sql.data()), end_(position_ + sql.size()) {}
  Token Next();

 private:
  void SkipBlanks();
  Token Take(TokenKind kind, const char* to);
  const char* EndOfWord(const char* from) const;
  const char* EndOfNumber(const char* from) const;
  const char* EndOfQuoted(const char* from, char quote) const;
  const char* EndOfMark(const char* from) const;

  const char* position_;
  const char* end_;
};

/// Whether a keyword is `upper`, which is written in capitals.
bool SameLetters(std::string_view word, std::string_view upper);  // of equal length
inline bool Same(std::string_view word, std::string_view upper) {
  return word.size() == upper.size() && SameLetters(word, upper);
}
inline bool IsWord(const Token& token, std::string_view upper) {
  return token.kind == TokenKind::kWord && Same(token.text, upper);
}
inline bool IsMark(const Token& token, std::string_view mark) {
  return token.kind == TokenKind::kMark && token.text == mark;
}

/// ASCII letters in lower case: the form in which names are compared.
std::string Folded(std::string_view name);
/// The name that a token stands for, without its brackets or quotes.
std::string NameOf(const Token& token);
/// `name` as a quoted name of SQLite.
std::string Quoted(std::string_view name);
/// The content of a kText token: without prefix and quotes, doubled quotes halved.
std::string TextOf(std::string_view token);
/// `text` as a literal of SQL.
std::string TextLiteral(std::string_view text);

}  // namespace kvraedi::sqlite
