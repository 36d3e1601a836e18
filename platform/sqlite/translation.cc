#include "platform/sqlite/translation.h"

#include "platform/sqlite/dialect.h"
#include "platform/sqlite/literal_uses.h"
#include "platform/sqlite/temporary_indexes.h"

namespace kvraedi::sqlite {
namespace {

std::string BinaryLiteral(std::string_view token) {
  const std::string_view digits = token.substr(2);
  return std::string(digits.size() % 2 == 0 ? "x'" : "x'0") + std::string(digits) + "'";
}

class Writer {
 public:
  Translation Write(const Pieces& pieces) {
    for (const Piece& piece : pieces) {
      Append(piece.before);
      Append(piece.written ? *piece.written : SqlOf(piece));
      Append(piece.after);
      if (piece.keeper != nullptr) {
        Append("," + Parameter(Slot::kColumn, {piece.keeper->type, piece.keeper}) + ")");
      }
    }
    return std::move(result_);
  }

 private:
  void Append(const std::string& text) {
    if (text.empty()) return;
    if (!result_.sql.empty()) result_.sql += ' ';
    result_.sql += text;
  }

  std::string SqlOf(const Piece& piece) {
    const Token& token = piece.token;
    switch (token.kind) {
      case TokenKind::kText:
      case TokenKind::kNumber:
        if (piece.literal >= 0)
          return Parameter(static_cast<std::size_t>(piece.literal), piece.beside);
        return ToSql(Evaluate({token.text, token.kind == TokenKind::kText}, piece.beside));
      case TokenKind::kBinary:
        return BinaryLiteral(token.text);
      case TokenKind::kQuotedName:
        return Quoted(NameOf(token));
      case TokenKind::kWord:
        return token.text.front() == '#' ? Quoted(token.text) : std::string(token.text);
      default:
        return std::string(token.text);
    }
  }

  std::string Parameter(std::size_t literal, const Beside& beside) {
    std::size_t i = 0;
    auto& slots = result_.slots;
    while (i < slots.size() && (slots[i].literal != literal || !(slots[i].beside == beside))) ++i;
    if (i == slots.size()) slots.push_back({literal, beside});
    return "?" + std::to_string(i + 1);
  }

  Translation result_;
};

Translation Finish(Pieces pieces, Schema& schema, const ScalarFunctions& functions) {
  functions.Inline(pieces);
  auto as_numbers = MarkLiteralUses(pieces, schema);
  MarkDialect(pieces, schema);
  Translation translation = Writer().Write(pieces);
  translation.indexes = TemporaryIndexes(pieces, schema, as_numbers);
  translation.as_numbers = std::move(as_numbers);
  return translation;
}

}  // namespace

Translation Translate(std::string_view sql, const std::vector<Literal>& literals, Schema& schema,
                      const ScalarFunctions& functions) {
  return Finish(ReadPieces(sql, literals), schema, functions);
}

std::string TranslatePieces(Pieces pieces, Schema& schema, const ScalarFunctions& functions) {
  return Finish(std::move(pieces), schema, functions).sql;
}

}  // namespace kvraedi::sqlite
