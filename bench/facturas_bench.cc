#include <stdexcept>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_facturas.h"
#include "kvraedi/clsFacturacionEmision.h"

namespace kvraedi::bench {
namespace {

void Comprobar(benchmark::State& state, std::size_t filas) {
  state.counters["filas"] = static_cast<double>(filas);
  if (filas == 0) throw std::runtime_error("the list is empty");
}

/// Filling the list as the user does: the two dates, then Enter.
void Propio(benchmark::State& state, int facturas) {
  Puesto puesto(PrepararLista(CarpetaBench(), facturas));
  clsFacturacionEmision clase;
  clase.Show(0, nullptr);
  ui::Form& form = *puesto.toolkit.OpenForm("frmEnvioFactura");
  dynamic_cast<ui::DateBox&>(*form.Find("txtFechaI")).Type("01/01/2025");
  auto& hasta = dynamic_cast<ui::DateBox&>(*form.Find("txtFechaF"));
  hasta.Type("31/12/2026");
  Medir(state, [&] { hasta.PressEnter(); });
  const auto& grid = dynamic_cast<ui::Grid&>(*form.Find("vsDocs"));
  Comprobar(state, static_cast<std::size_t>(grid.Rows()) - 1);
}

void Suelo(benchmark::State& state, int facturas) {
  const BaseSuelo base(PrepararLista(CarpetaBench(), facturas));
  std::vector<std::string> filas;
  Medir(state, [&] { filas = ListarSuelo(base); });
  Comprobar(state, filas.size());
}

void Caso(const std::string& nombre, int facturas) {
  Registrar(
      nombre, [facturas](benchmark::State& state) { Propio(state, facturas); },
      [facturas](benchmark::State& state) { Suelo(state, facturas); });
}

}  // namespace

void RegistrarFacturas() {
  // Of these, company 1 has a hundred thousand and a million, ticket invoices included.
  Caso("lista_100000", 114000);
  Caso("lista_1000000", 1140000);
}

}  // namespace kvraedi::bench
