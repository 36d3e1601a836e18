#include "frame/sql.h"

namespace kvraedi {

void SqlAppend(std::string& sql, std::string_view pieza) { sql += pieza; }

void SqlAppend(std::string& sql, SqlTexto texto) {
  sql += '\'';
  for (const char c : texto.valor) {
    if (c == '\'') sql += '\'';
    sql += c;
  }
  sql += '\'';
}

}  // namespace kvraedi
