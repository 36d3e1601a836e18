#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "kvraedi/ui/grid.h"

namespace kvraedi::cli {

/// A cell with its control characters turned into blanks.
std::string CeldaPlana(const ui::Grid& lista, int fila, int columna);
/// The same for a fixed column.
template <int columna>
std::string Celda(const ui::Grid& lista, int fila) {
  return CeldaPlana(lista, fila, columna);
}

/// A column of a table for people.
struct ColumnaTabla {
  std::string_view titulo;
  std::string (*texto)(const ui::Grid& lista, int fila);
  bool derecha = false;
};

/// The rows of a grid as a table, with a line of titles.
void EscribirTabla(const ui::Grid& lista, std::span<const ColumnaTabla> columnas,
                   std::ostream& salida);
/// The rows of a grid as an array of objects; `nombres` are those of its first columns.
void EscribirJson(const ui::Grid& lista, std::span<const std::string_view> nombres,
                  std::ostream& salida);

}  // namespace kvraedi::cli
