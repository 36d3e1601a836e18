#include <chrono>
#include <cstdint>
#include <fstream>
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

constexpr int kLineas = 50;  // of an order

/// The folder of received orders beside a copy, with a file of so many orders in Temp.
fs::path EscribirFichero(const Copia& copia, int pedidos) {
  fs::path carpeta = copia.Base().parent_path() / "ORDERS";
  for (const char* sub : {"Temp", "OK", "Error", "Log"}) fs::create_directories(carpeta / sub);
  std::ofstream fichero(carpeta / "Temp" / "orders.dat", std::ios::binary);
  fichero << "ORDERS_D_96A_UN_EAN008\r\n";
  for (int pedido = 0; pedido < pedidos; ++pedido) {
    fichero << "ORD|" << 4000000 + pedido
            << "|220|9\r\nDTM|20260515|20260520|20260521\r\nNADSU|8437000111115\r\nNADBY|"
            << kCliente << "\r\nNADDP|" << kGlnAlmacen << "\r\nFTX|Sin avisar\r\n";
    for (int linea = 1; linea <= kLineas; ++linea) {
      fichero << "LIN|" << 8410000000000 + linea * std::int64_t{17} << "|EN|" << linea
              << "\r\nIMDLIN|F|M||Queso curado de cabra " << linea << "\r\nQTYLIN|21|" << linea
              << ".5\r\nMOALIN|" << linea * 3 << ".25\r\n";
    }
    fichero << "MOARES|100.5|100.5|7|107.5\r\n";
  }
  return carpeta;
}

void Comprobar(const fs::path& base, const std::string& tabla, int pedidos) {
  const BaseSuelo abierta(base);
  SentenciaSuelo resultado(abierta,
                           "SELECT COUNT(*), SUM(Cantidad), SUM(Importe_Neto_Linea) FROM " + tabla);
  double unidades = 0;
  double importe = 0;
  for (int linea = 1; linea <= kLineas; ++linea) {
    unidades += linea + 0.5;
    importe += linea * 3 + 0.25;
  }
  if (!resultado.Paso() || resultado.Real(0) != pedidos * kLineas ||
      resultado.Real(1) != unidades * pedidos || resultado.Real(2) != importe * pedidos) {
    throw std::runtime_error("the lines are others");
  }
}

void Propio(benchmark::State& state, int pedidos) {
  const Copia copia(PrepararDesadv(CarpetaBench()));
  const Puesto puesto(copia.Base());
  const fs::path carpeta = EscribirFichero(copia, pedidos);
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
  const fs::path carpeta = EscribirFichero(copia, pedidos);
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
