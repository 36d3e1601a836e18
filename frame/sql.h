#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace kvraedi {

/// A text value inside a statement: it is written between single quotes, its own doubled.
struct SqlTexto {
  std::string_view valor;
};

void SqlAppend(std::string& sql, std::string_view pieza);
void SqlAppend(std::string& sql, SqlTexto texto);
template <std::integral T>
void SqlAppend(std::string& sql, T numero) {
  sql += std::to_string(numero);
}

/// A statement from its literal pieces and its values, in order.
template <class... Piezas>
std::string Sql(const Piezas&... piezas) {
  std::string sql;
  (SqlAppend(sql, piezas), ...);
  return sql;
}

}  // namespace kvraedi
