#include <fstream>

#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

class Compras : public ConDemo {};

TEST_F(Compras, EachCommandTellsItsFileOrTheReason) {
  const std::string fichero = (carpeta / "pedido ñ.txt").string();
  const std::string envios = (Demo() / "Envios").string() + "/";
  const struct {
    Palabras orden;
    int codigo;
    std::string texto;  ///< the file, or what the messages say
    std::string primeraLinea;
  } casos[] = {
      {{"pedidos", "exportar", "--pedido", "1234", "--fichero", fichero},
       0,
       fichero,
       "V4.0\t1234\tCONSIG-3\t02/03/2026\tP\t0\r"},
      {{"orders", "generar", "--pedido", "1234"},
       0,
       envios + "TempOrders/Order_03_0000001234.dat",
       "ORDERS_D_96A_UN_EAN008\r"},
      {{"recadv", "generar", "--ejercicio", "2026", "--almacen", "3", "--entrada", "157"},
       0,
       envios + "TempRECADV/2026/3/RECADV_003_2026_00000157.dat",
       "RECADV_D_96A_UN_EAN003\r"},
      {{"pedidos", "exportar", "--pedido", "5", "--fichero", fichero},
       1,
       "(La plataforma definina no es valida para esta función:5) clsPedidosProvEmision.Exportar",
       ""},
      {{"pedidos", "exportar", "--pedido", "4", "--fichero", fichero}, 1, "mensaje", ""},
      {{"orders", "generar", "--pedido", "10"}, 1, "no existe el pedido, o le faltan", ""},
      {{"recadv", "generar", "--ejercicio", "2026", "--almacen", "3", "--entrada", "999"},
       1,
       "no existe la entrada",
       ""},
      {{"orders", "generar", "--pedido", "0"}, 2, "--pedido", ""},
      {{"pedidos", "exportar", "--pedido", "1"}, 2, "falta la opción --fichero", ""},
      {{"recadv", "generar", "--ejercicio", "40000", "--almacen", "3", "--entrada", "1"},
       2,
       "--ejercicio",
       ""},
  };
  for (const auto& [orden, codigo, texto, primeraLinea] : casos) {
    SCOPED_TRACE(orden[0] + " " + texto);
    const Ejecucion hecho = Ejecutar(orden);
    EXPECT_EQ(hecho.codigo, codigo) << hecho.mensajes;
    if (codigo != 0) {
      EXPECT_TRUE(hecho.Dice(texto)) << hecho.mensajes;
      continue;
    }
    EXPECT_EQ(hecho.resultado, texto + "\n");
    std::string linea;
    std::getline(std::ifstream(texto), linea);
    EXPECT_EQ(linea, primeraLinea);
  }
}

}  // namespace
}  // namespace kvraedi::cli
