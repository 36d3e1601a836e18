#include "bench/suelo_facturas.h"

#include "dispatch/consulta_facturas.h"

namespace kvraedi::bench {

std::vector<std::string> ListarSuelo(const BaseSuelo& base) {
  FiltroFacturas filtro;
  filtro.fechaInicial = "2025-01-01";
  filtro.fechaFinal = "2026-12-31";
  std::string sql = ConsultaFacturas(filtro, 1, 1);
  constexpr std::string_view kDe = "ISNULL";
  for (auto sitio = sql.find(kDe); sitio != std::string::npos; sitio = sql.find(kDe, sitio)) {
    sql.replace(sitio, kDe.size(), "ifnull");
  }
  SentenciaSuelo sentencia(base, sql);
  return sentencia.Filas();
}

}  // namespace kvraedi::bench
