#include "platform/sqlite/shape.h"

#include <array>

#include "kvraedi/error.h"
#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {
namespace {

// SQLite numbers its parameters up to 32766.
constexpr std::size_t kMostLiterals = 32000;

constexpr std::array<std::string_view, 4> kDefinitionVerbs = {"CREATE", "ALTER", "DROP",
                                                              "TRUNCATE"};

// Words before numbers that are no values: a count of rows or the size of a type.
constexpr std::array<std::string_view, 10> kFixingWords = {
    "TOP",     "CHAR",    "VARCHAR", "NCHAR",  "NVARCHAR",
    "DECIMAL", "NUMERIC", "FLOAT",   "BINARY", "VARBINARY"};

StatementKind KindOf(const Token& first) {
  if (IsWord(first, "SELECT") || IsWord(first, "WITH")) return StatementKind::kQuery;
  for (const std::string_view word : kDefinitionVerbs) {
    if (IsWord(first, word)) return StatementKind::kDefinition;
  }
  if (IsWord(first, "SET")) return StatementKind::kSetting;
  for (const char* verb : {"INSERT", "UPDATE", "DELETE"}) {
    if (IsWord(first, verb)) return StatementKind::kChange;
  }
  // Transactions are the connection's own, and SQLite's other verbs are not T-SQL.
  throw Error(kErrorDatabase, "SQLite",
              "La base de datos integrada no admite la sentencia " + std::string(first.text));
}

bool FixesNumbers(std::string_view word) {
  for (const std::string_view fixing : kFixingWords) {
    if (Same(word, fixing)) return true;
  }
  return false;
}

[[noreturn]] void ThrowNotOne() {
  throw Error(kErrorDatabase, "SQLite", "Se esperaba una sola sentencia");
}

/// Builds the key: stretches of the text, a mark in the place of each literal.
class Reader {
 public:
  Reader(std::string_view sql, Shape& shape) : sql_(sql), rest_(sql.data()), shape_(shape) {}

  void Read() {
    Lexer lexer(sql_);
    Token token = lexer.Next();
    if (token.kind == TokenKind::kEnd) ThrowNotOne();
    shape_.kind = KindOf(token);
    if (shape_.kind == StatementKind::kDefinition || shape_.kind == StatementKind::kSetting) return;
    for (; token.kind != TokenKind::kEnd; token = lexer.Next()) Take(token);
    AppendUpTo(ended_ != nullptr ? ended_ : sql_.data() + sql_.size());
    if (shape_.literals.size() > kMostLiterals) {
      shape_.literals.clear();
      shape_.cacheable = false;
    }
  }

 private:
  void Take(const Token& token) {
    if (ended_ != nullptr) {
      if (!IsMark(token, ";")) ThrowNotOne();
      return;
    }
    switch (token.kind) {
      case TokenKind::kText:
        TakeLiteral(token, true);
        break;
      case TokenKind::kNumber:
        if (!fixed_ && order_depth_ < 0) TakeLiteral(token, false);
        return;
      case TokenKind::kWord:
        TakeWord(token.text);
        return;
      case TokenKind::kQuotedName:
        TakeWord(token.text.substr(1, token.text.size() - 2));
        return;
      case TokenKind::kMark:
        TakeMark(token);
        return;
      default:
        break;
    }
    fixed_ = false;
  }

  void TakeWord(std::string_view word) {
    fixed_ = FixesNumbers(word);
    if (Same(word, "ORDER")) order_depth_ = depth_;
  }

  void TakeMark(const Token& token) {
    switch (token.text.front()) {
      case '(':
        ++depth_;
        break;
      case ')':
        if (--depth_ < order_depth_) order_depth_ = -1;
        break;
      case ';':
        ended_ = token.text.data();
        break;
      default:
        break;
    }
    fixed_ = fixed_ && (token.text == "(" || token.text == ",");
  }

  void TakeLiteral(const Token& token, bool is_text) {
    AppendUpTo(token.text.data());
    shape_.key += is_text ? '\1' : '\2';
    rest_ = token.text.data() + token.text.size();
    shape_.literals.push_back({token.text, is_text});
    fixed_ = false;
  }

  void AppendUpTo(const char* to) {
    shape_.key.append(rest_, static_cast<std::size_t>(to - rest_));
  }

  std::string_view sql_;
  const char* rest_;  // what the key does not hold yet
  Shape& shape_;
  const char* ended_ = nullptr;  // the ";" that ended the statement
  bool fixed_ = false;           // numbers that follow stay in the text
  int depth_ = 0;
  int order_depth_ = -1;
};

}  // namespace

void ReadShape(std::string_view sql, Shape& shape) {
  shape.key.clear();
  shape.literals.clear();
  shape.cacheable = true;
  Reader(sql, shape).Read();
}

}  // namespace kvraedi::sqlite
