#include <stdexcept>

#include "bench/datos.h"
#include "bench/lista.h"
#include "bench/suelo_facturas.h"

namespace kvraedi::bench {
namespace {

void Comprobar(benchmark::State& state, std::size_t filas) {
  state.counters["filas"] = static_cast<double>(filas);
  if (filas == 0) throw std::runtime_error("the list is empty");
}

void Propio(benchmark::State& state, int facturas) {
  Puesto puesto(PrepararLista(CarpetaBench(), facturas));
  Lista lista(puesto);
  Medir(state, [&] { lista.Llenar(); });
  Comprobar(state, lista.Filas());
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
