#include "platform/sqlite/literal.h"

#include <array>
#include <charconv>

#include "kvraedi/error.h"
#include "platform/sqlite/column_value.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/numbers.h"

namespace kvraedi::sqlite {
namespace {

using Type = LiteralValue::Type;

std::string Impossible(std::string_view text, const char* kind) {
  return "La conversión del texto '" + std::string(text) + "' en " + kind + " no es posible.";
}

LiteralValue TextValue(std::string text) {
  LiteralValue value;
  value.owned = std::move(text);
  return value;
}

LiteralValue ViewOf(std::string_view text) {
  LiteralValue value;
  value.view = text;
  return value;
}

/// Texts without quotes inside are used where they stand.
LiteralValue PlainText(std::string_view written) {
  const std::size_t prefix = written.front() == '\'' ? 1 : 2;
  const std::string_view inner = written.substr(prefix, written.size() - prefix - 1);
  return inner.find('\'') != std::string_view::npos ? TextValue(TextOf(written)) : ViewOf(inner);
}

std::string_view WithoutLeadingZeros(std::string_view digits) {
  while (digits.size() > 1 && digits[0] == '0' && digits[1] >= '0' && digits[1] <= '9') {
    digits.remove_prefix(1);
  }
  return digits;
}

/// A number of more digits than 64 bits hold keeps them all as text.
LiteralValue PlainNumber(std::string_view written) {
  constexpr std::size_t kSafeDigits = 18;
  if (written.find_first_not_of("0123456789") != std::string_view::npos) return NumberOf(written);
  const std::string_view digits = WithoutLeadingZeros(written);
  if (digits.size() > kSafeDigits) return ViewOf(digits);
  LiteralValue value;
  value.type = Type::kInteger;
  for (const char digit : digits) value.integer = value.integer * 10 + (digit - '0');
  return value;
}

/// "2024-03-05" is the third of May to a server that reads the day first.
void CheckDayFirst(std::string_view written) {
  constexpr std::size_t kBehindYear = 4;
  const std::size_t dash = written.find('-');
  if (dash != written.find('\'') + 1 + kBehindYear) return;
  if (written.find('T') != std::string_view::npos) return;
  throw Error(kErrorDatabase, "SQLite",
              "La fecha " + std::string(written) +
                  " es otra para un servidor que lee primero el día: debe escribirse aaaammdd.");
}

LiteralValue NumberText(std::string_view written) {
  if (written.front() == '.') return TextValue("0" + std::string(written));
  return ViewOf(WithoutLeadingZeros(written));
}

}  // namespace

std::string BadDateMessage(std::string_view text) { return Impossible(text, "fecha"); }

LiteralValue NumberOf(std::string_view text) {
  LiteralValue value;
  if (Trimmed(text).empty()) {
    value.type = Type::kInteger;
  } else if (const auto integer = ParseInteger(text)) {
    value.type = Type::kInteger;
    value.integer = *integer;
  } else if (const auto real = ParseReal(text)) {
    value.type = Type::kReal;
    value.real = *real;
  } else {
    throw Error(kErrorDatabase, "SQLite", Impossible(text, "número"));
  }
  return value;
}

LiteralValue Evaluate(const Literal& literal, const Beside& beside) {
  if (literal.is_text && beside.type.kind == ColumnKind::kDate) CheckDayFirst(literal.written);
  if (beside.stored != nullptr) {
    const bool number_in_text = !literal.is_text && beside.stored->type.kind == ColumnKind::kText;
    return ValueFor(*beside.stored,
                    literal.is_text  ? PlainText(literal.written)
                    : number_in_text ? NumberText(literal.written)
                                     : ViewOf(literal.written),
                    literal.is_text);
  }
  if (literal.is_text) return ValueBeside(beside.type, PlainText(literal.written));
  if (beside.type.kind == ColumnKind::kText) return NumberText(literal.written);
  if (IsDate(beside.type.kind)) return MomentOf(beside.type, literal.written);
  return PlainNumber(literal.written);
}

std::string ToSql(const LiteralValue& value) {
  switch (value.type) {
    case Type::kInteger:
      return std::to_string(value.integer);
    case Type::kReal: {
      std::array<char, 32> text{};
      const auto result = std::to_chars(text.data(), text.data() + text.size(), value.real,
                                        std::chars_format::scientific);
      return {text.data(), result.ptr};
    }
    case Type::kBlob:
      return "CAST(" + TextLiteral(value.Text()) + " AS BLOB)";
    case Type::kText:
      break;
  }
  return TextLiteral(value.Text());
}

}  // namespace kvraedi::sqlite
