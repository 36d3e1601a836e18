#include "platform/sqlite/settings.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/piece.h"

namespace kvraedi::sqlite {
namespace {

// SQLite's transactions are serializable, which every level is content with.
constexpr std::string_view kHonoured[] = {
    "ANSI_NULLS ON",
    "ANSI_PADDING ON",
    "ANSI_WARNINGS ON",
    "ARITHABORT ON",
    "CONCAT_NULL_YIELDS_NULL ON",
    "DATEFORMAT dmy",
    "IMPLICIT_TRANSACTIONS OFF",
    "LANGUAGE Español",
    "LANGUAGE Spanish",
    "NOCOUNT OFF",
    "NOCOUNT ON",
    "QUOTED_IDENTIFIER ON",
    "TRANSACTION ISOLATION LEVEL READ COMMITTED",
    "TRANSACTION ISOLATION LEVEL READ UNCOMMITTED",
    "TRANSACTION ISOLATION LEVEL REPEATABLE READ",
    "TRANSACTION ISOLATION LEVEL SERIALIZABLE",
    "XACT_ABORT OFF",
};

}  // namespace

void CheckSetting(std::string_view sql) {
  std::string setting;
  Lexer lexer(sql);
  lexer.Next();
  for (Token token = lexer.Next(); token.kind != TokenKind::kEnd; token = lexer.Next()) {
    if (IsMark(token, ";")) continue;
    if (!setting.empty()) setting += ' ';
    setting += token.kind == TokenKind::kText ? TextOf(token.text) : NameOf(token);
  }
  const auto same = [&setting](std::string_view known) {
    return CompareTexts(known, setting) == 0;
  };
  if (std::none_of(std::begin(kHonoured), std::end(kHonoured), same)) {
    ThrowUnsupported("SET " + setting);
  }
}

}  // namespace kvraedi::sqlite
