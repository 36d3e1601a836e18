#include <fstream>
#include <iterator>
#include <stdexcept>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_pedidos.h"
#include "kvraedi/clsOrders.h"
#include "kvraedi/clsRecadv.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

std::string Leer(const fs::path& fichero) {
  std::ifstream entrada(fichero, std::ios::binary);
  return {std::istreambuf_iterator<char>(entrada), {}};
}

void Comparar(const fs::path& fichero, const std::string& esperado) {
  if (esperado.empty() || Leer(fichero) != esperado) {
    throw std::runtime_error("the floor writes other bytes: " + fichero.string());
  }
}

void GenerarOrders(clsOrders& orders, Puesto& puesto, int pedido) {
  if (!orders.Generar(pedido)) throw std::runtime_error(puesto.toolkit.Messages().back().text);
}

void PropioOrders(benchmark::State& state, int pedido) {
  const Copia copia(PrepararCompras(CarpetaBench()));
  Puesto puesto(copia.Base());
  clsOrders orders;
  Medir(state, [&] { GenerarOrders(orders, puesto, pedido); });
}

void SueloDeOrders(benchmark::State& state, int pedido) {
  const Copia copia(PrepararCompras(CarpetaBench()));
  const fs::path fichero = copia.Envios() / "suelo" / "orders.dat";
  {
    const BaseSuelo base(copia.Base());
    SueloOrders suelo(base);
    Medir(state, [&] { suelo.Generar(pedido, fichero); });
  }
  Puesto puesto(copia.Base());
  clsOrders orders;
  GenerarOrders(orders, puesto, pedido);
  Comparar(orders.PathFicheroGenerado(), Leer(fichero));
}

void GenerarRecadv(clsRecadv& recadv, Puesto& puesto, int entrada) {
  if (!recadv.Generar(kEjercicio, 3, entrada)) {
    throw std::runtime_error(puesto.toolkit.Messages().back().text);
  }
}

void PropioRecadv(benchmark::State& state, int entradas) {
  const Copia copia(PrepararCompras(CarpetaBench()));
  Puesto puesto(copia.Base());
  clsRecadv recadv;
  Medir(state, [&] {
    for (int entrada = 1; entrada <= entradas; ++entrada) GenerarRecadv(recadv, puesto, entrada);
  });
}

void SueloDeRecadv(benchmark::State& state, int entradas) {
  const Copia copia(PrepararCompras(CarpetaBench()));
  const fs::path carpeta = copia.Envios() / "suelo" / "2026" / "3";
  {
    const BaseSuelo base(copia.Base());
    SueloRecadv suelo(base);
    Medir(state, [&] {
      for (int entrada = 1; entrada <= entradas; ++entrada) suelo.Generar(entrada, carpeta);
    });
  }
  Puesto puesto(copia.Base());
  clsRecadv recadv;
  GenerarRecadv(recadv, puesto, entradas);
  const fs::path propio = recadv.PathFicheroGenerado();
  Comparar(propio, Leer(carpeta / propio.filename()));
}

}  // namespace

void RegistrarPedidos() {
  for (const int lineas : {kPedidoCorto, kPedidoLargo}) {
    Registrar(
        "orders_salida_" + std::to_string(lineas),
        [lineas](benchmark::State& state) { PropioOrders(state, lineas); },
        [lineas](benchmark::State& state) { SueloDeOrders(state, lineas); });
  }
  for (const int entradas : {kEntradas / 10, kEntradas}) {
    Registrar(
        "recadv_" + std::to_string(entradas),
        [entradas](benchmark::State& state) { PropioRecadv(state, entradas); },
        [entradas](benchmark::State& state) { SueloDeRecadv(state, entradas); });
  }
}

}  // namespace kvraedi::bench
