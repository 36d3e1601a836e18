#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/sqlite/column_kind.h"

namespace kvraedi::sqlite {

/// A text or number of a statement, as it was written.
struct Literal {
  std::string_view written;
  bool is_text = false;
};

/// What a literal stands for where it stands.
enum class LiteralUse : std::uint8_t {
  kPlain,
  kDate,        // a text beside a date column
  kDay,         // the same, the column keeps no time
  kNumberText,  // a number beside a text column
  kNumber,      // a text beside a number column
  kBlob,        // a text beside a binary column
};

/// How a literal is taken that is compared with, or stored in, a column of that kind.
LiteralUse UseBeside(ColumnKind column, bool literal_is_text);

/// The value that reaches the database.
struct LiteralValue {
  enum class Type : std::uint8_t { kInteger, kReal, kText, kBlob };
  Type type = Type::kText;
  std::int64_t integer = 0;
  double real = 0;
  std::string_view view;  // of the statement, when it can be used as it stands
  std::string owned;      // otherwise
  std::string_view Text() const { return view.data() != nullptr ? view : owned; }
};

/// Raises when the text is not the date or number that its use asks for.
LiteralValue Evaluate(const Literal& literal, LiteralUse use);

/// The value as a literal of SQLite.
std::string ToSql(const LiteralValue& value);

std::string BadDateMessage(std::string_view text);

}  // namespace kvraedi::sqlite
