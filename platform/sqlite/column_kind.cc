#include "platform/sqlite/column_kind.h"

#include <array>

#include "kvraedi/error.h"
#include "platform/sqlite/collations.h"
#include "platform/sqlite/lexer.h"

namespace kvraedi::sqlite {
namespace {

using enum ColumnKind;

constexpr std::array<SqlType, 28> kTypes = {{
    {"int", "int", kInteger},
    {"integer", "int", kInteger},
    {"smallint", "smallint", kInteger},
    {"tinyint", "tinyint", kInteger},
    {"bigint", "bigint", kInteger},
    {"bit", "int_bit", kInteger},
    {"money", "real_money", kReal},
    {"smallmoney", "real_smallmoney", kReal},
    {"decimal", "real_decimal", kReal},
    {"numeric", "real_numeric", kReal},
    {"float", "real_float", kReal},
    {"real", "real", kReal},
    {"char", "char", kText},
    {"varchar", "varchar", kText},
    {"nchar", "nchar", kText},
    {"nvarchar", "nvarchar", kText},
    {"text", "text", kText},
    {"ntext", "ntext", kText},
    {"sysname", "text_sysname", kText},
    {"uniqueidentifier", "text_uniqueidentifier", kText},
    {"datetime", "text_datetime", kDate},
    {"datetime2", "text_datetime2", kDate},
    {"smalldatetime", "text_smalldatetime", kDate},
    {"date", "text_date", kDay},
    {"varbinary", "blob_varbinary", kBlob},
    {"binary", "blob_binary", kBlob},
    {"image", "blob_image", kBlob},
    {"timestamp", "blob_timestamp", kBlob},
}};

}  // namespace

const SqlType& FindSqlType(std::string_view name) {
  const std::string wanted = Folded(name);
  for (const SqlType& type : kTypes) {
    if (type.name == wanted) return type;
  }
  throw Error(kErrorDatabase, "SQLite", "Tipo de datos desconocido: " + std::string(name));
}

ColumnKind KindOfDeclared(std::string_view declared) {
  const std::string written = Folded(declared.substr(0, declared.find('(')));
  for (const SqlType& type : kTypes) {
    if (type.declared == written) return type.kind;
  }
  const auto has = [&written](const char* part) { return written.find(part) != std::string::npos; };
  if (has("int")) return kInteger;
  if (has("char") || has("clob") || has("text")) return kText;
  if (has("blob") || written.empty()) return kBlob;
  if (has("real") || has("floa") || has("doub")) return kReal;
  return kUnknown;
}

std::string_view CollationOf(ColumnKind kind) {
  if (kind == kText) return kTextCollation;
  return IsDate(kind) ? kDateCollation : std::string_view{};
}

}  // namespace kvraedi::sqlite
