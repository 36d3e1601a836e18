#include "platform/sqlite/column_kind.h"

#include <array>
#include <charconv>
#include <limits>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {
namespace {

using enum ColumnKind;

constexpr std::int64_t kMost64 = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kLeast32 = std::numeric_limits<std::int32_t>::min();

// Of two rows with one name, the first is what the name stands for.
constexpr std::array<SqlType, 30> kTypes = {{
    {"int", "int", kInteger, Fit::kInteger, kLeast32, kMost32},
    {"integer", "int", kInteger, Fit::kInteger, kLeast32, kMost32},
    {"smallint", "smallint", kInteger, Fit::kInteger, -32768, 32767},
    {"tinyint", "tinyint", kInteger, Fit::kInteger, 0, 255},
    {"bigint", "bigint", kInteger, Fit::kInteger, kLeast64, kMost64},
    {"bit", "int_bit", kInteger, Fit::kBit},
    {"money", "real_money", kReal, Fit::kMoney, kLeast64, kMost64},
    {"smallmoney", "real_smallmoney", kReal, Fit::kMoney, kLeast32, kMost32},
    {"decimal", "real_decimal", kReal, Fit::kDecimal},
    {"numeric", "real_numeric", kReal, Fit::kDecimal},
    {"decimal", "int_decimal", kInteger, Fit::kDecimal},
    {"numeric", "int_numeric", kInteger, Fit::kDecimal},
    {"float", "real_float", kReal},
    {"real", "real", kReal},
    {"char", "char", kText, Fit::kText},
    {"varchar", "varchar", kText, Fit::kText},
    {"nchar", "nchar", kText, Fit::kText},
    {"nvarchar", "nvarchar", kText, Fit::kText},
    {"text", "text", kText},
    {"ntext", "ntext", kText},
    {"sysname", "text_sysname", kText},
    {"uniqueidentifier", "text_uniqueidentifier", kText},
    {"datetime", "text_datetime", kDate, Fit::kDateTime, 1753},
    {"datetime2", "text_datetime2", kDate, Fit::kDateTime, 1},
    {"smalldatetime", "text_smalldatetime", kDate, Fit::kMinute},
    {"date", "text_date", kDay, Fit::kDateTime, 1},
    {"varbinary", "blob_varbinary", kBlob},
    {"binary", "blob_binary", kBlob},
    {"image", "blob_image", kBlob},
    {"timestamp", "blob_timestamp", kBlob},
}};

constexpr int kMostExactDigits = 18;  // of a whole number in 64 bits

/// The kind that SQLite's own rules give a type.
ColumnKind KindOfForeign(const std::string& written) {
  const auto has = [&written](const char* part) { return written.find(part) != std::string::npos; };
  if (has("int")) return kInteger;
  if (has("char") || has("clob") || has("text")) return kText;
  if (has("blob") || written.empty()) return kBlob;
  if (has("real") || has("floa") || has("doub")) return kReal;
  return kUnknown;
}

/// The whole number that follows the "(" or "," at `at`; 0 when none does.
int SizeAt(std::string_view declared, std::size_t at) {
  int size = 0;
  if (at != std::string_view::npos) {
    std::from_chars(declared.data() + at + 1, declared.data() + declared.size(), size);
  }
  return size;
}

}  // namespace

const SqlType& FindSqlType(std::string_view name) {
  const std::string wanted = Folded(name);
  for (const SqlType& type : kTypes) {
    if (type.name == wanted) return type;
  }
  throw Error(kErrorDatabase, "SQLite", "Tipo de datos desconocido: " + std::string(name));
}

std::string Declared(std::string_view name, std::vector<int> sizes, bool max) {
  const SqlType& type = FindSqlType(name);
  std::string declared(type.declared);
  if (type.fit == Fit::kDecimal) {
    if (sizes.empty()) sizes.push_back(kMostExactDigits);
    if (sizes.size() == 1) sizes.push_back(0);
    const bool whole = sizes[1] == 0 && sizes[0] <= kMostExactDigits;
    if (whole) declared = "int_" + std::string(type.name);
  } else if (type.fit == Fit::kText && sizes.empty() && !max) {
    sizes.push_back(1);
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    declared += (i == 0 ? "(" : ",") + std::to_string(sizes[i]);
  }
  return sizes.empty() ? declared : declared + ")";
}

ColumnType TypeOfDeclared(std::string_view declared) {
  const std::size_t open = declared.find('(');
  const std::string written = Folded(declared.substr(0, open));
  for (const SqlType& type : kTypes) {
    if (type.declared != written) continue;
    return {type.kind, &type, SizeAt(declared, open), SizeAt(declared, declared.find(','))};
  }
  return {KindOfForeign(written)};
}

std::string Written(const ColumnType& type) {
  std::string text(type.sql->name);
  if (type.size == 0) return text;
  text += "(" + std::to_string(type.size);
  if (type.sql->fit == Fit::kDecimal) text += "," + std::to_string(type.scale);
  return text + ")";
}

std::string_view CollationOf(ColumnKind kind) {
  if (kind == kText) return kTextCollation;
  return IsDate(kind) ? kDateCollation : std::string_view{};
}

}  // namespace kvraedi::sqlite
