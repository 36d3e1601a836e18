#include "platform/odbc/row_update.h"

#include <algorithm>
#include <vector>

#include "kvraedi/error.h"
#include "platform/odbc/session.h"

namespace kvraedi::odbc {
namespace {

[[noreturn]] void ThrowReadOnly() { Throw("Las filas de la sentencia no se pueden modificar"); }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool Same(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Upper(x) == Upper(y); });
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsName(char c) {
  const char upper = Upper(c);
  return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '#' ||
         c == '$' || c == '@' || static_cast<unsigned char>(c) >= 0x80U;
}

/// The words of a statement: names, quoted or not, texts, single marks.
class Words {
 public:
  explicit Words(std::string_view sql) : sql_(sql) {}

  std::string_view Next() {
    while (at_ < sql_.size() && IsBlank(sql_[at_])) ++at_;
    const std::size_t start = at_;
    if (at_ == sql_.size()) return {};
    const char first = sql_[at_++];
    if (first == '\'' || first == '"' || first == '[') {
      const std::size_t end = sql_.find(first == '[' ? ']' : first, at_);
      at_ = end == std::string_view::npos ? sql_.size() : end + 1;
    } else if (IsName(first)) {
      while (at_ < sql_.size() && IsName(sql_[at_])) ++at_;
    }
    return sql_.substr(start, at_ - start);
  }
  std::string_view Rest() const { return sql_.substr(at_); }

 private:
  std::string_view sql_;
  std::size_t at_ = 0;
};

bool IsNameWord(std::string_view word) {
  return !word.empty() && (IsName(word.front()) || word.front() == '[' || word.front() == '"');
}

std::string_view Bare(std::string_view name) {
  const bool quoted = name.size() > 1 && !IsName(name.front());
  return quoted ? name.substr(1, name.size() - 2) : name;
}

/// The columns up to FROM; raises when they are anything but names.
std::vector<std::string_view> Columns(Words& words) {
  std::vector<std::string_view> columns;
  std::string_view separator = ",";
  for (; separator == ","; separator = words.Next()) {
    const std::string_view column = words.Next();
    if (column != "*" && !IsNameWord(column)) ThrowReadOnly();
    columns.push_back(Bare(column));
  }
  if (!Same(separator, "FROM")) ThrowReadOnly();
  return columns;
}

/// A name, or several with points between them.
std::string Table(Words& words) {
  std::string table;
  for (bool more = true; more;) {
    const std::string_view name = words.Next();
    if (!IsNameWord(name)) ThrowReadOnly();
    table += name;
    more = words.Rest().starts_with('.');
    if (more) table += words.Next();
  }
  return table;
}

bool IsOrdered(std::string_view rest) {
  Words words(rest);
  int depth = 0;
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (word == "(") ++depth;
    if (word == ")") --depth;
    if (depth == 0 && Same(word, "ORDER")) return true;
  }
  return false;
}

}  // namespace

std::string FirstRowUpdate(std::string_view select, std::string_view field,
                           std::string_view value) {
  Words words(select);
  if (!Same(words.Next(), "SELECT")) ThrowReadOnly();
  const auto columns = Columns(words);
  if (std::none_of(columns.begin(), columns.end(), [field](std::string_view column) {
        return column == "*" || Same(column, field);
      })) {
    throw Error(kErrorItemNotFound, "ODBC", "No existe el campo " + std::string(field));
  }
  const std::string table = Table(words);
  const std::string rest(words.Rest());
  const std::string_view next = words.Next();
  if (!next.empty() && !Same(next, "WHERE") && !Same(next, "ORDER")) ThrowReadOnly();
  const std::string change = " SET [" + std::string(field) + "] = " + std::string(value);
  if (!IsOrdered(rest)) return "UPDATE TOP (1) " + table + change + rest;
  return "WITH fila AS (SELECT TOP (1) * FROM " + table + rest + ") UPDATE fila" + change;
}

}  // namespace kvraedi::odbc
