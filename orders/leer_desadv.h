#pragma once

#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "orders/lector_barras.h"
#include "orders/tablas_desadv.h"

namespace kvraedi::desadv {

/// Whether a line is one that a DESADV file begins with; blanks around it do not count.
bool EsInicio(std::string_view linea);

/// Copies the records of a file into its staging tables. `fichero` is its name. Raises `Error`; one
/// about a value tells file, line and field.
void Leer(LectorBarras& lector, const std::string& fichero, const Tablas& tablas,
          Connection& conexion, Entorno& entorno);

}  // namespace kvraedi::desadv
