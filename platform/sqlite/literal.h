#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/sqlite/column_kind.h"

namespace kvraedi::sqlite {

struct Column;

/// A text or number of a statement, as it was written.
struct Literal {
  std::string_view written;
  bool is_text = false;
};

/// What a literal stands beside: the type that it is compared with, or the column, of the schema,
/// that it is stored in. Neither: it is taken as it stands.
struct Beside {
  ColumnType type;
  const Column* stored = nullptr;
  friend bool operator==(const Beside&, const Beside&) = default;
};

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

/// Raises when the literal is not the date or number that it has to be, or does not fit its column.
LiteralValue Evaluate(const Literal& literal, const Beside& beside);

/// A text as a number, the empty one as 0; raises when it is none.
LiteralValue NumberOf(std::string_view text);

/// The value as a literal of SQLite.
std::string ToSql(const LiteralValue& value);

std::string BadDateMessage(std::string_view text);

}  // namespace kvraedi::sqlite
