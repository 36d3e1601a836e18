#include "frame/sql.h"
#include "kvraedi/clsRecadv.h"
#include "tests/orders/escenario_compras.h"

namespace kvraedi {
namespace {

class RecadvTest : public EscenarioCompras {
 protected:
  void SetUp() override {
    EscenarioCompras::SetUp();
    base->Run(Guion("orders/entradas.sql"));
  }
  std::string Generar(std::int16_t almacen = 3) {
    return FalloDe(recadv.Generar(2026, almacen, 157));
  }
  std::filesystem::path Fichero(int almacen = 3) const {
    const std::string numero = std::to_string(almacen);
    return envios / "TempRECADV" / "2026" / numero / ("RECADV_00" + numero + "_2026_00000157.dat");
  }

  clsRecadv recadv;
};

TEST_F(RecadvTest, TheWholeMessage) {
  EXPECT_EQ(Generar(), "");
  EXPECT_EQ(recadv.PathFicheroGenerado(), Fichero().string());
  std::string mensaje = CrLf(Guion("orders/mensaje_recadv.dat"));
  EXPECT_EQ(Leer(Fichero()), mensaje);
  empresa->igic = false;
  EXPECT_EQ(Generar(), "");
  for (const std::string registro : {"TAXLIN|IGIC|3|3.015\r\n", "TAXLIN|IGIC|7|0\r\n"}) {
    mensaje.erase(mensaje.find(registro), registro.size());
  }
  EXPECT_EQ(Leer(Fichero()), mensaje);
}

TEST_F(RecadvTest, TheTaxArticleDependsOnTheStore) {
  const std::pair<std::int16_t, const char*> casos[] = {
      {3, "LIN|8480002|EN"}, {4, "LIN|8481002|EN"}, {5, "LIN|8482002|EN"}, {6, "LIN|8400002|EN"}};
  for (const auto& [almacen, registro] : casos) {
    const std::string cambio = Sql("UPDATE Entradas SET Cod_Almacen = ", almacen,
                                   ";UPDATE Entradas_Impuestos SET Cod_Almacen = ", almacen);
    ComprobarRegistros({{cambio, registro}}, Fichero(almacen),
                       [&, en = almacen] { return Generar(en); });
  }
}

TEST_F(RecadvTest, RecordsOfOtherData) {
  const std::vector<Caso> casos = {
      {"UPDATE Entradas SET Documento = NULL", "BGM|"},
      {"UPDATE Entradas SET Cod_Pedido = 0", "RFF"},
      {"UPDATE Entradas SET Cod_Pedido = NULL", "RFF"},
      {"UPDATE Proveedores_GLN SET Principal = 0", "NADSU|"},
      {"UPDATE Almacenes SET EDI_GLN = NULL", "NADDP|"},
      {"DELETE FROM Entradas_Impuestos", "LIN||EN"},
      {"DELETE FROM Entradas_Impuestos", "TAXLIN|IGIC|0|0"},
      {"DELETE FROM Entradas_Impuestos", "CNTRES|1"},
      {"UPDATE Entradas_Impuestos SET Importe = NULL, Base = -1.25", "PRILIN|AAA|-1.25"},
  };
  ComprobarRegistros(casos, Fichero(), [&] { return Generar(); });
}

TEST_F(RecadvTest, AReceiptThatIsNotThereIsNoFailure) {
  EXPECT_EQ(Generar(4), "");
  EXPECT_EQ(recadv.PathFicheroGenerado(), "");
  EXPECT_TRUE(std::filesystem::is_empty(envios / "TempRECADV" / "2026" / "4"));
}

TEST_F(RecadvTest, EveryFailureIsShownAndWhatWasWrittenStays) {
  ComprobarFallos(Fichero(), 2, 5, "clsRecadv:Generar: ", [&] { return Generar(); });
}

}  // namespace
}  // namespace kvraedi
