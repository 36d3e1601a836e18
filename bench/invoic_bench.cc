#include <stdexcept>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_invoic.h"
#include "seres/modSeres.h"

namespace kvraedi::bench {
namespace {

/// Invoices from `primero` to `ultimo`, sent one by one.
struct Tramo {
  int primero;
  int ultimo;
};

void Propio(benchmark::State& state, Tramo tramo) {
  const Copia copia(PrepararInvoic(CarpetaBench()));
  Puesto puesto(copia.Base());
  Medir(state, [&] {
    for (int codigo = tramo.primero; codigo <= tramo.ultimo; ++codigo) {
      if (!INVOIC(kCliente, 1, codigo, 0, kEjercicio)) {
        throw std::runtime_error(puesto.toolkit.Messages().back().text);
      }
    }
  });
}

void Suelo(benchmark::State& state, Tramo tramo) {
  const Copia copia(PrepararInvoic(CarpetaBench()));
  const BaseSuelo base(copia.Base());
  SueloInvoic suelo(base, copia.Envios());
  Medir(state, [&] {
    for (int codigo = tramo.primero; codigo <= tramo.ultimo; ++codigo) suelo.Enviar(codigo);
  });
}

void Caso(const std::string& nombre, Tramo tramo) {
  Registrar(
      nombre, [tramo](benchmark::State& state) { Propio(state, tramo); },
      [tramo](benchmark::State& state) { Suelo(state, tramo); });
}

}  // namespace

void RegistrarInvoic() {
  Caso("invoic_2000", {1, kFacturas});
  Caso("invoic_1000_lineas", {kMil.codigo, kMil.codigo});
  Caso("invoic_10000_lineas", {kDiezMil.codigo, kDiezMil.codigo});
}

}  // namespace kvraedi::bench
