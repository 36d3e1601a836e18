#include "platform/sqlite/functions.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cmath>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/column_value.h"
#include "platform/sqlite/literal.h"
#include "platform/sqlite/numbers.h"

namespace kvraedi::sqlite {
namespace {

using Clock = std::function<FechaHora()>;

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void Answer(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// Fails with a text of ours.
void Fail(sqlite3_context* context, std::string_view message) {
  sqlite3_result_error(context, message.data(), static_cast<int>(message.size()));
  sqlite3_result_error_code(context, SQLITE_CONSTRAINT_FUNCTION);
}

FechaHora SystemNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return {static_cast<std::int16_t>(parts.tm_year + 1900),
          static_cast<std::int8_t>(parts.tm_mon + 1),
          static_cast<std::int8_t>(parts.tm_mday),
          static_cast<std::int8_t>(parts.tm_hour),
          static_cast<std::int8_t>(parts.tm_min),
          static_cast<std::int8_t>(parts.tm_sec < 60 ? parts.tm_sec : 59)};
}

void Now(sqlite3_context* context, int, sqlite3_value**) {
  const auto& clock = *static_cast<const Clock*>(sqlite3_user_data(context));
  try {
    Answer(context, (clock ? clock() : SystemNow()).ToIso());
  } catch (const std::exception& error) {
    Fail(context, error.what());
  }
}

void Round(sqlite3_context* context, int count, sqlite3_value** values) {
  const int type = sqlite3_value_numeric_type(values[0]);
  const bool null =
      type == SQLITE_NULL || (count == 2 && sqlite3_value_type(values[1]) == SQLITE_NULL);
  if (null) return;
  const int places = count == 2 ? sqlite3_value_int(values[1]) : 0;
  if (type == SQLITE_INTEGER && places >= 0) {
    sqlite3_result_int64(context, sqlite3_value_int64(values[0]));
  } else {
    sqlite3_result_double(context, RoundDecimal(sqlite3_value_double(values[0]), places));
  }
}

void Length(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  std::string_view text = TextOf(values[0]);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  std::int64_t characters = 0;
  for (const char c : text) characters += (static_cast<unsigned char>(c) & 0xC0U) != 0x80 ? 1 : 0;
  sqlite3_result_int64(context, characters);
}

void AnswerDate(sqlite3_context* context, sqlite3_value* value, bool keeps_time) {
  if (sqlite3_value_type(value) == SQLITE_NULL) return;
  const std::string_view text = TextOf(value);
  auto date = FechaHora::Parse(text);
  if (!date) {
    Fail(context, BadDateMessage(text));
    return;
  }
  if (!keeps_time) date->hour = date->minute = date->second = 0;
  Answer(context, date->ToIso());
}

void Date(sqlite3_context* context, int, sqlite3_value** values) {
  AnswerDate(context, values[0], true);
}

void Day(sqlite3_context* context, int, sqlite3_value** values) {
  AnswerDate(context, values[0], false);
}

void Text(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_FLOAT) {
    Answer(context, RealText(sqlite3_value_double(values[0])));
  } else {
    sqlite3_result_value(context, values[0]);
  }
}

/// The value's text as ValueFor reads it, and whether it was one.
std::pair<std::string, bool> DigitsOrText(sqlite3_value* value) {
  constexpr double kFifteenDigitsLoseDecimals = 1e11;
  if (sqlite3_value_type(value) != SQLITE_FLOAT) {
    return {std::string(TextOf(value)), sqlite3_value_type(value) == SQLITE_TEXT};
  }
  const double real = sqlite3_value_double(value);
  if (std::fabs(real) < kFifteenDigitsLoseDecimals) return {RealText(real), false};
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), real).ptr;
  return {std::string(text.data(), end), false};
}

constexpr const char* kColumnPointer = "kvr_columna";

/// A sum or product that its scale rounds beyond doubt needs no decimal text.
std::optional<double> PlainlyRounded(const ColumnType& type, sqlite3_value* value) {
  constexpr double kMost = 200'000;  // what every type of money holds
  if (sqlite3_value_type(value) != SQLITE_FLOAT || type.sql->fit != Fit::kMoney) return {};
  const double scaled = sqlite3_value_double(value) * Currency::kScale;
  const double units = std::nearbyint(scaled);
  if (std::fabs(units) > kMost * Currency::kScale || std::fabs(scaled - units) > 0.25) return {};
  return units / Currency::kScale;
}

void Keep(sqlite3_context* context, int, sqlite3_value** values) {
  const auto* column = static_cast<const Column*>(sqlite3_value_pointer(values[1], kColumnPointer));
  if (column == nullptr) return Fail(context, "kvr_guarda es de uso interno");
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  if (const auto rounded = PlainlyRounded(column->type, values[0])) {
    return sqlite3_result_double(context, *rounded);
  }
  try {
    LiteralValue value;
    const auto [text, is_text] = DigitsOrText(values[0]);
    value.view = text;
    value = ValueFor(*column, std::move(value), is_text);
    if (value.type == LiteralValue::Type::kInteger) {
      sqlite3_result_int64(context, value.integer);
    } else if (value.type == LiteralValue::Type::kReal) {
      sqlite3_result_double(context, value.real);
    } else {
      Answer(context, value.Text());
    }
  } catch (const Error& error) {
    Fail(context, error.Description());
  }
}

/// like(pattern, text [, escape]), which SQLite calls for the operator LIKE.
void Like(sqlite3_context* context, int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return;
  }
  const std::string_view escape = count == 3 ? TextOf(values[2]) : std::string_view();
  sqlite3_result_int(context, MatchesLike(TextOf(values[1]), TextOf(values[0]),
                                          escape.empty() ? '\0' : escape.front()));
}

/// The number of a table, null when there is none of that name.
void ObjectId(sqlite3_context* context, int, sqlite3_value** values) {
  sqlite3_stmt* query = nullptr;
  sqlite3_prepare_v2(sqlite3_context_db_handle(context),
                     "SELECT rowid FROM sqlite_master WHERE name = ?1 COLLATE NOCASE", -1, &query,
                     nullptr);
  sqlite3_bind_value(query, 1, values[0]);
  const int result = sqlite3_step(query);
  if (result == SQLITE_ROW) sqlite3_result_value(context, sqlite3_column_value(query, 0));
  sqlite3_finalize(query);
  if (result != SQLITE_ROW && result != SQLITE_DONE) sqlite3_result_error_code(context, result);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void Add(sqlite3* db, const char* name, int arguments, Function function,
         int flags = SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS) {
  const int result = sqlite3_create_function_v2(db, name, arguments, SQLITE_UTF8 | flags, nullptr,
                                                function, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) throw Error(kErrorDatabase, "SQLite", sqlite3_errmsg(db));
}

}  // namespace

int BindColumn(sqlite3_stmt* statement, int index, const Column& column) {
  // SQLite takes a pointer to what may be changed; Keep gives it back as it was.
  auto* const pointer =
      const_cast<Column*>(&column);  // NOLINT(cppcoreguidelines-pro-type-const-cast): see above
  return sqlite3_bind_pointer(statement, index, pointer, kColumnPointer, nullptr);
}

void AddFunctions(sqlite3* db, Clock clock) {
  Add(db, "ROUND", 1, Round);
  Add(db, "ROUND", 2, Round);
  Add(db, "LEN", 1, Length);
  Add(db, "OBJECT_ID", 1, ObjectId, SQLITE_DIRECTONLY);
  Add(db, "LIKE", 2, Like);
  Add(db, "LIKE", 3, Like);
  Add(db, "kvr_fecha", 1, Date);
  Add(db, "kvr_dia", 1, Day);
  Add(db, "kvr_texto", 1, Text);
  Add(db, "kvr_guarda", 2, Keep);
  auto owned = std::make_unique<Clock>(std::move(clock));
  const auto destroy = [](void* data) { delete static_cast<Clock*>(data); };
  // SQLite destroys the clock, also when this call fails.
  const int result = sqlite3_create_function_v2(db, "kvr_ahora", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                                owned.release(), Now, nullptr, nullptr, destroy);
  if (result != SQLITE_OK) throw Error(kErrorDatabase, "SQLite", sqlite3_errmsg(db));
}

}  // namespace kvraedi::sqlite
