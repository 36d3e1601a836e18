#include "seres/campos_consulta.h"

namespace kvraedi {

void CopiarCampos(Registro& registro, const Recordset& fila,
                  std::span<const CampoConsulta> campos) {
  CopiarCampos(registro, fila, campos, Columnas(fila, campos));
}

std::vector<int> Columnas(const Recordset& filas, std::span<const CampoConsulta> campos) {
  std::vector<int> columnas;
  for (const CampoConsulta& campo : campos) columnas.push_back(filas.Field(campo.columna));
  return columnas;
}

void CopiarCampos(Registro& registro, const Recordset& fila, std::span<const CampoConsulta> campos,
                  std::span<const int> columnas) {
  for (std::size_t i = 0; i < campos.size(); ++i) {
    registro.Texto(campos[i].campo, fila.GetOrEmpty<std::string_view>(columnas[i]));
  }
}

}  // namespace kvraedi
