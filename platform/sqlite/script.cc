#include "platform/sqlite/script.h"

#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {
namespace {

/// Whether nothing but blanks stands beside the token on its line.
bool IsAloneOnLine(std::string_view script, const Token& token) {
  const auto begin = static_cast<std::size_t>(token.text.data() - script.data());
  const std::string_view before = script.substr(0, begin);
  const std::string_view behind = script.substr(begin + token.text.size());
  const auto blank = [](std::string_view text) {
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
  };
  const std::size_t line = before.rfind('\n') + 1;  // 0 when there is none
  return blank(before.substr(line)) && blank(behind.substr(0, behind.find('\n')));
}

}  // namespace

std::vector<std::string_view> SplitScript(std::string_view script) {
  std::vector<std::string_view> statements;
  const char* first = nullptr;
  const char* last = nullptr;
  int depth = 0;
  const auto end_statement = [&] {
    if (first != nullptr) statements.emplace_back(first, static_cast<std::size_t>(last - first));
    first = nullptr;
    depth = 0;
  };
  Lexer lexer(script);
  for (Token token = lexer.Next(); token.kind != TokenKind::kEnd; token = lexer.Next()) {
    const bool go = IsWord(token, "GO") && IsAloneOnLine(script, token);
    if (go || (depth == 0 && IsMark(token, ";"))) {
      end_statement();
      continue;
    }
    if (IsWord(token, "BEGIN") || IsWord(token, "CASE")) ++depth;
    if (IsWord(token, "END")) --depth;
    if (first == nullptr) first = token.text.data();
    last = token.text.data() + token.text.size();
  }
  end_statement();
  return statements;
}

}  // namespace kvraedi::sqlite
