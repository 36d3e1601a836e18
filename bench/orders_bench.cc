#include <chrono>
#include <stdexcept>
#include <string>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_orders.h"
#include "orders/crear_pedidos.h"
#include "orders/procesar_ficheros.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

void Comprobar(const fs::path& base, const std::string& tabla, int pedidos) {
  const BaseSuelo abierta(base);
  SentenciaSuelo resultado(abierta,
                           "SELECT COUNT(*), SUM(Cantidad), SUM(Importe_Neto_Linea) FROM " + tabla);
  double unidades = 0;
  double importe = 0;
  for (int linea = 1; linea <= kLineasPorPedido; ++linea) {
    unidades += linea + 0.5;
    importe += linea * 3 + 0.25;
  }
  if (!resultado.Paso() || resultado.Real(0) != pedidos * kLineasPorPedido ||
      resultado.Real(1) != unidades * pedidos || resultado.Real(2) != importe * pedidos) {
    throw std::runtime_error("the lines are others");
  }
}

void Propio(benchmark::State& state, int pedidos) {
  const Copia copia(PrepararDesadv(CarpetaBench()));
  const Puesto puesto(copia.Base());
  const fs::path carpeta = copia.Base().parent_path() / "ORDERS";
  EscribirOrders(carpeta, pedidos);
  Medir(state, [&] { ProcesarFicheros(carpeta); });
  Comprobar(copia.Base(), "EDI_PedidosClientes_Lineas", pedidos);
  using Reloj = std::chrono::steady_clock;
  const auto inicio = Reloj::now();
  CrearPedidosClientes(carpeta);
  state.counters["crear_ms"] =
      std::chrono::duration<double, std::milli>(Reloj::now() - inicio).count();
  Comprobar(copia.Base(), "Pedidos_Clientes_Lineas", pedidos);
}

void Suelo(benchmark::State& state, int pedidos) {
  const Copia copia(PrepararDesadv(CarpetaBench()));
  const fs::path carpeta = copia.Base().parent_path() / "ORDERS";
  EscribirOrders(carpeta, pedidos);
  {
    const BaseSuelo base(copia.Base());
    Medir(state, [&] {
      InsertarOrdersSuelo(base, carpeta / "Temp" / "orders.dat", carpeta / "OK" / "orders.dat");
    });
  }
  Comprobar(copia.Base(), "EDI_PedidosClientes_Lineas", pedidos);
}

void Caso(const std::string& nombre, int pedidos) {
  Registrar(
      nombre, [=](benchmark::State& state) { Propio(state, pedidos); },
      [=](benchmark::State& state) { Suelo(state, pedidos); });
}

}  // namespace

void RegistrarOrders() {
  Caso("orders_5000_lineas", 100);
  Caso("orders_50000_lineas", 1000);
  Caso("orders_1000000_lineas", 20000);
}

}  // namespace kvraedi::bench
