#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "frame/registro.h"
#include "kvraedi/conexion.h"

namespace kvraedi {

/// A text field of a record and the column that fills it.
struct CampoConsulta {
  Campo campo;
  std::string_view columna;
};

/// Copies the columns of the current row into the record; a null leaves its field blank.
void CopiarCampos(Registro& registro, const Recordset& fila, std::span<const CampoConsulta> campos);

/// The same for many rows: the places of the columns are looked up once.
std::vector<int> Columnas(const Recordset& filas, std::span<const CampoConsulta> campos);
void CopiarCampos(Registro& registro, const Recordset& fila, std::span<const CampoConsulta> campos,
                  std::span<const int> columnas);

}  // namespace kvraedi
