#include "seres/campos_consulta.h"

namespace kvraedi {

void CopiarCampos(Registro& registro, const Recordset& fila,
                  std::span<const CampoConsulta> campos) {
  for (const auto& [campo, columna] : campos) {
    registro.Texto(campo, fila.GetOrEmpty<std::string_view>(columna));
  }
}

}  // namespace kvraedi
