#include "kvraedi/clsPedidosProvEmision.h"
#include "tests/orders/escenario_compras.h"

namespace kvraedi {
namespace {

class PedidosTest : public EscenarioCompras {
 protected:
  /// "" when it went well, else number and text of the error.
  std::string Exportar(std::int32_t pedido = 1234) {
    clsPedidosProvEmision pedidos;
    pedidos.Codigo_Pedido(pedido);
    try {
      pedidos.Exportar(fichero.string());
      return "";
    } catch (const Error& error) {
      return std::to_string(static_cast<std::uint32_t>(error.Number()) - 0x80040000U) + " " +
             error.Description();
    }
  }

  std::filesystem::path fichero = carpeta / "pedido ñ.txt";
};

constexpr const char* kV3 = "UPDATE Proveedores SET Cod_EDITipoMsg = 2";
constexpr const char* kEan = "UPDATE Proveedores SET Cod_EDIPlat = 5, Cod_EDITipoMsg = 7";

TEST_F(PedidosTest, EachLayout) {
  const struct {
    std::string cambio;
    const char* contenido;  ///< "|" stands for a tab
  } casos[] = {
      {"", "V4.0|1234|CONSIG-3|02/03/2026|P|0\nREF-1|12|02/03/2026\n|2|02/03/2026\n"},
      {"UPDATE Pedidos_Proveedores SET Fecha = '02/03/2026 09:05:07';"
       "UPDATE Almacenes SET PedProv_Consignacion = NULL;"
       "UPDATE Pedidos_Proveedores_Lineas SET Unidades = 3.5 WHERE Num_Linea = 1;"
       "UPDATE Pedidos_Proveedores_Lineas SET Unidades = -0.25 WHERE Num_Linea = 2",
       "V4.0|1234||02/03/2026 9:05:07|P|0\nREF-1|4|02/03/2026 9:05:07\n|0|02/03/2026 9:05:07\n"},
      {"UPDATE Pedidos_Proveedores SET Cod_Almacen = 77",
       "V4.0|1234||02/03/2026|P|0\nREF-1|12|02/03/2026\n|2|02/03/2026\n"},
      {kV3, "V3.0|1234|CONSIG-3|02/03/2026|\nREF-1|12|0.5|0|0|||1\n|2|0|0|0|||1\n"},
      {kEan, "REF-1|8400000005018|12|Queso\n||2.5|Gofio de 1 €\n"},
      {std::string(kEan) +
           ";UPDATE Pedidos_Proveedores_Lineas SET Descripcion = 'á\tb\r\nΩ', Unidades = 0.0001"
           " WHERE Num_Linea = 1",
       "REF-1|8400000005018|0.0001|á|b\n?\n||2.5|Gofio de 1 €\n"},
  };
  std::ofstream(fichero) << "lo que había antes, que es más largo que el pedido que se exporta";
  for (const auto& [cambio, contenido] : casos) {
    std::string esperado = CrLf(contenido);
    std::replace(esperado.begin(), esperado.end(), '|', '\t');
    Con(cambio, [&] {
      EXPECT_EQ(Exportar(), "");
      EXPECT_EQ(Leer(fichero), esperado);
    });
  }
}

TEST_F(PedidosTest, WhatCannotBeExportedIsRaisedWithItsNumber) {
  const std::string sinPlataforma =
      "1 (No se ha definido ninguna plataforma de exportación para el proveedor: 20)"
      " clsPedidosProvEmision.Exportar";
  const struct {
    const char* cambio;
    std::string error;
  } casos[] = {
      {"DELETE FROM Pedidos_Proveedores_Lineas",
       "3 (No existe ningun pedido con el código:1234) clsPedidosProvEmision.Exportar"},
      {"DELETE FROM Proveedores WHERE Cod_Empresa = 8", sinPlataforma},
      {"UPDATE Proveedores SET Cod_EDIPlat = 0", sinPlataforma},
      {"UPDATE Proveedores SET Cod_EDITipoMsg = NULL", sinPlataforma},
      {"UPDATE Proveedores SET Cod_EDIPlat = 6",
       "2 (La plataforma definina no es valida para esta función:1234)"
       " clsPedidosProvEmision.Exportar"},
      {"UPDATE Proveedores SET Cod_EDITipoMsg = 3", ""},
  };
  for (const auto& [cambio, error] : casos) {
    Con(cambio, [&, &esperado = error] {
      EXPECT_EQ(Exportar(), esperado);
      EXPECT_FALSE(std::filesystem::exists(fichero));
    });
  }
  EXPECT_TRUE(toolkit.Messages().empty());
}

TEST_F(PedidosTest, EveryFailureReachesTheHostAndWhatWasWrittenStays) {
  ComprobarFallos(fichero, 4, 2, "(", [&] { return Exportar(); });
  base->Execute("UPDATE Pedidos_Proveedores_Lineas SET Unidades = NULL WHERE Num_Linea = 2");
  EXPECT_TRUE(Exportar().ends_with("(Uso no válido de Null) clsPedidosProvEmision.Exportar"));
  EXPECT_TRUE(Leer(fichero).ends_with("REF-1\t12\t02/03/2026\r\n"));
}

}  // namespace
}  // namespace kvraedi
