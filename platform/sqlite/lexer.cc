#include "platform/sqlite/lexer.h"

#include <array>
#include <cstring>

#include "kvraedi/error.h"

namespace kvraedi::sqlite {
namespace {

enum CharClass : std::uint8_t { kOther, kBlank, kDigit, kLetter, kControl };

constexpr std::array<CharClass, 256> MakeClasses() {
  std::array<CharClass, 256> classes{};
  for (std::size_t c = 0; c < 256; ++c) {
    if (c == ' ' || (c >= '\t' && c <= '\r')) {
      classes[c] = kBlank;
    } else if (c < ' ') {
      classes[c] = kControl;
    } else if (c >= '0' && c <= '9') {
      classes[c] = kDigit;
    } else if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '#' ||
               c == '@' || c == '$' || c >= 0x80) {
      classes[c] = kLetter;
    }
  }
  return classes;
}

constexpr auto kClasses = MakeClasses();

CharClass ClassOf(char c) { return kClasses[static_cast<unsigned char>(c)]; }

[[noreturn]] void ThrowSyntax(const char* description) {
  throw Error(kErrorDatabase, "SQLite", description);
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// `text` with every `mark` that stands twice halved.
std::string Halved(std::string_view text, char mark) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] == mark) ++i;
  }
  return result;
}

std::string Doubled(std::string_view text, char mark) {
  std::string result(1, mark);
  for (const char c : text) {
    result += c;
    if (c == mark) result += c;
  }
  return result += mark;
}

}  // namespace

void Lexer::SkipBlanks() {
  while (position_ != end_) {
    if (ClassOf(*position_) == kBlank) {
      ++position_;
      continue;
    }
    const bool pair = end_ - position_ > 1;
    if (pair && position_[0] == '-' && position_[1] == '-') {
      while (position_ != end_ && *position_ != '\n') ++position_;
    } else if (pair && position_[0] == '/' && position_[1] == '*') {
      const std::string_view rest(position_ + 2, static_cast<std::size_t>(end_ - position_ - 2));
      const auto close = rest.find("*/");
      if (close == std::string_view::npos) ThrowSyntax("Comentario sin cerrar en la sentencia");
      position_ = rest.data() + close + 2;
    } else {
      return;
    }
  }
}

Token Lexer::Take(TokenKind kind, const char* to) {
  const Token token{kind, {position_, static_cast<std::size_t>(to - position_)}};
  position_ = to;
  return token;
}

const char* Lexer::EndOfWord(const char* from) const {
  while (from != end_ && (ClassOf(*from) == kLetter || ClassOf(*from) == kDigit)) ++from;
  return from;
}

const char* Lexer::EndOfNumber(const char* from) const {
  const auto skip_digits = [&] {
    while (from != end_ && ClassOf(*from) == kDigit) ++from;
  };
  skip_digits();
  if (from != end_ && *from == '.') {
    ++from;
    skip_digits();
  }
  if (from != end_ && (*from == 'e' || *from == 'E')) {
    const char* exponent = from + 1;
    if (exponent != end_ && (*exponent == '+' || *exponent == '-')) ++exponent;
    if (exponent != end_ && ClassOf(*exponent) == kDigit) {
      from = exponent;
      skip_digits();
    }
  }
  return from;
}

const char* Lexer::EndOfQuoted(const char* from, char quote) const {
  for (;;) {
    from =
        static_cast<const char*>(std::memchr(from, quote, static_cast<std::size_t>(end_ - from)));
    if (from == nullptr) ThrowSyntax("Texto o nombre sin cerrar en la sentencia");
    ++from;
    if (from == end_ || *from != quote) return from;
    ++from;
  }
}

const char* Lexer::EndOfMark(const char* from) const {
  const char first = *from++;
  if (from == end_) return from;
  const bool pair = (first == '<' && (*from == '>' || *from == '=')) ||
                    (first == '>' && *from == '=') ||
                    (first == '!' && (*from == '=' || *from == '<' || *from == '>'));
  return pair ? from + 1 : from;
}

Token Lexer::Next() {
  SkipBlanks();
  if (position_ == end_) return {};
  const char first = *position_;
  const char second = end_ - position_ > 1 ? position_[1] : '\0';
  switch (ClassOf(first)) {
    case kControl:
      ThrowSyntax("La sentencia contiene un carácter de control");
    case kDigit:
      if (first == '0' && (second == 'x' || second == 'X')) {
        return Take(TokenKind::kBinary, EndOfWord(position_));
      }
      return Take(TokenKind::kNumber, EndOfNumber(position_));
    case kLetter:
      if ((first == 'N' || first == 'n') && second == '\'') {
        return Take(TokenKind::kText, EndOfQuoted(position_ + 2, '\''));
      }
      return Take(first == '@' ? TokenKind::kVariable : TokenKind::kWord, EndOfWord(position_));
    default:
      break;
  }
  if (first == '\'') return Take(TokenKind::kText, EndOfQuoted(position_ + 1, '\''));
  if (first == '[') return Take(TokenKind::kQuotedName, EndOfQuoted(position_ + 1, ']'));
  if (first == '"') return Take(TokenKind::kQuotedName, EndOfQuoted(position_ + 1, '"'));
  if (first == '.' && ClassOf(second) == kDigit) {
    return Take(TokenKind::kNumber, EndOfNumber(position_));
  }
  return Take(TokenKind::kMark, EndOfMark(position_));
}

bool SameLetters(std::string_view word, std::string_view upper) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (Lower(word[i]) != Lower(upper[i])) return false;
  }
  return true;
}

std::string Folded(std::string_view name) {
  std::string result(name);
  for (char& c : result) c = Lower(c);
  return result;
}

std::string NameOf(const Token& token) {
  if (token.kind != TokenKind::kQuotedName) return std::string(token.text);
  return Halved(token.text.substr(1, token.text.size() - 2), token.text.back());
}

std::string Quoted(std::string_view name) { return Doubled(name, '"'); }

std::string TextOf(std::string_view token) {
  const std::size_t prefix = token.front() == '\'' ? 1 : 2;
  return Halved(token.substr(prefix, token.size() - prefix - 1), '\'');
}

std::string TextLiteral(std::string_view text) { return Doubled(text, '\''); }

}  // namespace kvraedi::sqlite
