#pragma once

#include <iosfwd>

#include "kvraedi/ui/grid.h"

namespace kvraedi::cli {

/// The list as an array of objects, one for each row, with the texts of its 20 cells.
void EscribirJson(const ui::Grid& lista, std::ostream& salida);
/// The list as a table for people, with the key that names each row on the command line.
void EscribirTabla(const ui::Grid& lista, std::ostream& salida);

}  // namespace kvraedi::cli
