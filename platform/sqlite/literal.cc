#include "platform/sqlite/literal.h"

#include <array>
#include <charconv>

#include "kvraedi/error.h"
#include "kvraedi/valor.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"
#include "platform/sqlite/numbers.h"

namespace kvraedi::sqlite {
namespace {

using Type = LiteralValue::Type;

std::string Impossible(std::string_view text, const char* kind) {
  return "La conversión del texto '" + std::string(text) + "' en " + kind + " no es posible.";
}

LiteralValue TextValue(std::string text, Type type = Type::kText) {
  LiteralValue value;
  value.type = type;
  value.owned = std::move(text);
  return value;
}

/// Texts without quotes inside are used where they stand.
LiteralValue PlainText(std::string_view written) {
  const std::size_t prefix = written.front() == '\'' ? 1 : 2;
  const std::string_view inner = written.substr(prefix, written.size() - prefix - 1);
  if (inner.find('\'') != std::string_view::npos) return TextValue(TextOf(written));
  LiteralValue value;
  value.view = inner;
  return value;
}

LiteralValue DateValue(LiteralValue text, bool keeps_time) {
  const auto parsed = FechaHora::Parse(text.Text());
  if (!parsed) throw Error(kErrorDatabase, "SQLite", BadDateMessage(text.Text()));
  if (IsCanonicalDate(text.Text()) && (keeps_time || !parsed->HasTime())) return text;
  FechaHora date = *parsed;
  if (!keeps_time) date.hour = date.minute = date.second = 0;
  return TextValue(date.ToIso());
}

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
  LiteralValue value;
  if (digits.size() > kSafeDigits) {
    value.view = digits;
    return value;
  }
  value.type = Type::kInteger;
  for (const char digit : digits) value.integer = value.integer * 10 + (digit - '0');
  return value;
}

LiteralValue NumberText(std::string_view written) {
  LiteralValue value;
  if (written.front() == '.') return TextValue("0" + std::string(written));
  value.view = WithoutLeadingZeros(written);
  return value;
}

}  // namespace

std::string BadDateMessage(std::string_view text) { return Impossible(text, "fecha"); }

LiteralUse UseBeside(ColumnKind column, bool literal_is_text) {
  switch (column) {
    case ColumnKind::kDate:
      return literal_is_text ? LiteralUse::kDate : LiteralUse::kPlain;
    case ColumnKind::kDay:
      return literal_is_text ? LiteralUse::kDay : LiteralUse::kPlain;
    case ColumnKind::kText:
      return literal_is_text ? LiteralUse::kPlain : LiteralUse::kNumberText;
    case ColumnKind::kInteger:
    case ColumnKind::kReal:
      return literal_is_text ? LiteralUse::kNumber : LiteralUse::kPlain;
    case ColumnKind::kBlob:
      return literal_is_text ? LiteralUse::kBlob : LiteralUse::kPlain;
    case ColumnKind::kUnknown:
      break;
  }
  return LiteralUse::kPlain;
}

LiteralValue Evaluate(const Literal& literal, LiteralUse use) {
  if (!literal.is_text) {
    return use == LiteralUse::kNumberText ? NumberText(literal.written)
                                          : PlainNumber(literal.written);
  }
  LiteralValue text = PlainText(literal.written);
  switch (use) {
    case LiteralUse::kDate:
    case LiteralUse::kDay:
      return DateValue(std::move(text), use == LiteralUse::kDate);
    case LiteralUse::kNumber:
      return NumberOf(text.Text());
    case LiteralUse::kBlob:
      text.type = Type::kBlob;
      return text;
    default:
      return text;
  }
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
