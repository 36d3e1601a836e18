#include "orders/codigo_gln.h"

#include <algorithm>
#include <string>

#include "frame/recortar.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi {

std::vector<std::int32_t> CodigosSinPuntos(std::string_view tabla, std::int16_t empresa,
                                           std::string_view gln) {
  constexpr std::size_t kMasCodigos = 2;
  std::string cifras(Recortar(gln));
  cifras.erase(std::remove(cifras.begin(), cifras.end(), '.'), cifras.end());
  std::vector<std::int32_t> codigos;
  if (cifras.empty()) return codigos;
  const auto rs =
      ConexionActual().Open(Sql("SELECT Codigo FROM ", tabla, " WHERE Cod_Empresa =", empresa,
                                " AND REPLACE(EDI_GLN, '.', '') =", SqlTexto{cifras}));
  for (; !rs->Eof() && codigos.size() < kMasCodigos; rs->MoveNext()) {
    codigos.push_back(rs->Get<std::int32_t>("Codigo"));
  }
  return codigos;
}

}  // namespace kvraedi
