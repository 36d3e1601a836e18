#include "kvraedi/clsOrders.h"
#include "tests/orders/escenario_compras.h"

namespace kvraedi {
namespace {

class OrdersTest : public EscenarioCompras {
 protected:
  std::string Generar(std::int32_t pedido = 1234) { return FalloDe(orders.Generar(pedido)); }

  clsOrders orders;
  std::filesystem::path fichero = envios / "TempOrders" / "Order_03_0000001234.dat";
};

TEST_F(OrdersTest, TheWholeMessage) {
  EXPECT_EQ(Generar(), "");
  EXPECT_EQ(orders.PathFicheroGenerado(), fichero.string());
  EXPECT_EQ(Leer(fichero), CrLf(Guion("orders/mensaje_orders.dat")));
}

TEST_F(OrdersTest, RecordsOfOtherData) {
  const std::string lineas = "UPDATE Pedidos_Proveedores_Lineas SET ";
  const std::string unos(20, '1');
  const std::string doses(16, '2');
  const std::string largo(80, 'x');
  std::string enes;
  for (int i = 0; i < 70; ++i) enes += "ñ";
  const std::vector<Caso> casos = {
      {"UPDATE Pedidos_Proveedores SET Fecha_Esperada = NULL, Fecha_EsperadaFin = '31/12/2026 "
       "23:59'",
       "DTM|20260302||20261231"},
      {"UPDATE Proveedores_GLN SET Principal = 0", "NADSU||20"},
      {"UPDATE Proveedores_GLN SET GLN = '" + unos + "." + doses + "' WHERE Principal = 1",
       "NADSU|" + unos + doses.substr(1) + "|20"},
      {"UPDATE Empresas SET Nombre_1 = '" + enes +
           "ñ', Direccion = NULL, cp = '12345678901', Nif = 'ES123456789'",
       "NADBY|8400000000017||||" + enes + "||Las Palmas|1234567890|ES12345678"},
      {"UPDATE Almacenes SET EDI_GLN = NULL, Nombre = '" + largo + "', Localidad = 'a|b'",
       "NADDP|||" + largo.substr(0, 70) + "|Muelle, 2|a|b|35002"},
      {lineas + "Descripcion = NULL", "IMDLIN|F|M||"},
      {lineas + "Descripcion = '" + largo + "'", "IMDLIN|F|M||" + largo.substr(0, 70)},
      {lineas + "Unidades = 0.1, CFraCImp = 3", "MOALIN|0.3"},
      {lineas + "Unidades = -0.0003, CFraCImp = 0.0101", "MOALIN|-0.00000303"},
      {lineas + "Unidades = 0, CFraCImp = -3", "MOALIN|0"},
      {lineas + "Bultos = NULL, Palets = 0, Unidades = -1", "CNTRES||||2"},
      {"DELETE FROM Articulos", "CNTRES|3|0.5|14.5|"},
  };
  ComprobarRegistros(casos, fichero, [&] { return Generar(); });
}

TEST_F(OrdersTest, AnOrderThatIsNotThereIsNoFailure) {
  orders.PathFicheroGenerado("el de antes");
  EXPECT_EQ(Generar(99), "");
  base->Execute("DELETE FROM Pedidos_Proveedores_Lineas");
  EXPECT_EQ(Generar(), "");
  EXPECT_EQ(orders.PathFicheroGenerado(), "el de antes");
  EXPECT_TRUE(std::filesystem::is_empty(envios / "TempOrders"));
}

TEST_F(OrdersTest, TheLineCounterHas16Bits) {
  for (int n = 2; n < 32768; n *= 2) {
    base->Execute(
        "INSERT INTO Pedidos_Proveedores_Lineas SELECT Cod_Empresa, Codigo, Num_Linea + " +
        std::to_string(n) +
        ", Cod_Articulo, Ref, Descripcion, 0, 0, 0, 1 FROM Pedidos_Proveedores_Lineas");
  }
  EXPECT_EQ(Generar(), "clsOrders:Generar: Desbordamiento");
  const std::vector<Caso> casos = {
      {"DELETE FROM Pedidos_Proveedores_Lineas WHERE Num_Linea = 32768",
       "CNTRES|3|0.5|14.5|32767"}};
  ComprobarRegistros(casos, fichero, [&] { return Generar(); });
}

TEST_F(OrdersTest, EveryFailureIsShownAndWhatWasWrittenStays) {
  ComprobarFallos(fichero, 2, 3, "clsOrders:Generar: ", [&] { return Generar(); });
  base->Execute("UPDATE Pedidos_Proveedores SET Importe = NULL");
  EXPECT_EQ(Generar(), "clsOrders:Generar: Uso no válido de Null");
  EXPECT_TRUE(Leer(fichero).ends_with("QTYLIN|21|2.5\r\nMOALIN|6.25\r\n"));
  base->Execute("DELETE FROM Empresas_Parametros");
  orders.EmpresaKestrova(std::make_shared<EmpresaDePrueba>(*base, std::int16_t{1}, carpeta.Ruta()));
  EXPECT_TRUE(Generar().starts_with("clsOrders:Generar: No se ha definido la ruta"));
}

}  // namespace
}  // namespace kvraedi
