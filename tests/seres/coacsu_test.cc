#include <gtest/gtest.h>

#include <fstream>

#include "seres/modSeres.h"
#include "tests/apoyo/escenario.h"
#include "tests/apoyo/registro_esperado.h"

namespace kvraedi {
namespace {

class CoacsuTest : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Execute("UPDATE Clientes SET Cta_Bancaria = 'ES00 1234'");
  }
  /// A summary invoice of 20/02/2024 with a delivery note of two lines, one of them text.
  void InsertarResumen(int codigo, std::string_view cambios = {}) {
    InsertarFactura(codigo,
                    "TipoFactura = 2, FormaPago = 5, Dto1 = 1.5, Dto2 = 2,"
                    " Ent_Nombre = 'Comedor Ñ', Ent_Direccion = 'C/ Sol', Ent_Nif = 'B1',"
                    " Ent_Contacto = 'Ana María', Ent_Telefono = '1', Ent_Fax = '2'");
    if (!cambios.empty()) {
      base->Execute("UPDATE Facturas SET " + std::string(cambios) +
                    " WHERE Codigo = " + std::to_string(codigo));
    }
    const std::string nota = "1, 2024, 3, " + std::to_string(8000 + codigo);
    base->Execute(
        "INSERT INTO Albaranes_F (Cod_Empresa, Cod_Ejercicio, Serie, Codigo,"
        " Factura_Codigo, Fecha, Ent_Nombre, Ent_Cp, Ent_Pais) VALUES (" +
        nota + ", " + std::to_string(codigo) + ", '20/02/2024', 'Cocina', '35001', 'ESPAÑA')");
    base->Execute(
        "INSERT INTO Albaranes_F_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo,"
        " Num_Linea, Cod_Articulo, Precio, PvpBase) VALUES (" +
        nota + ", 1, 501, 1234.5, -0.0005)");
    base->Execute(
        "INSERT INTO Albaranes_F_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo,"
        " Num_Linea, Cod_Articulo) VALUES (" +
        nota + ", 2, -1)");
  }
  bool Procesar() { return ProcesarFacturasCoacsu(100, "01/02/2024", "29/02/2024"); }
  std::vector<std::string> Registros() const { return Lineas(Contenido(fichero)); }
  static std::string Tags(const std::vector<std::string>& lineas) {
    std::string tags;
    for (const auto& linea : lineas) tags += linea.substr(0, 5) + " ";
    return tags;
  }
  std::filesystem::path fichero = unidad / "KVRAEDI_COACSU.txt";
};

TEST_F(CoacsuTest, ASummaryInvoiceFillsEveryRecord) {
  InsertarResumen(7);
  EXPECT_TRUE(Procesar());
  const auto lineas = Registros();
  ASSERT_EQ(Tags(lineas), "RECTL SCOAC SCOAT SCOAP SCOAD SCOAL SCOAQ SCOAA ");
  EXPECT_EQ(lineas[0], Esperado(134, "1 RECTL|7 COACSU|123 212403010908"));
  EXPECT_EQ(lineas[1],
            Esperado(365,
                     "1 SCOAC|7 49E|27 RELFAC|65 20240301|73 20240220|81 20240220|106 EUR|117 ES00 "
                     "1234|291 20|-311 100.000|-329 3.500|-347 7.000|-365 107.000"));
  EXPECT_EQ(lineas[2], Esperado(362, "1 SCOAT|7 AAI"));
  EXPECT_EQ(lineas[3], Esperado(595,
                                "1 SCOAP|7 IV|27 EAN|30 Comedor \xD1|205 C/ Sol|401 B1|471 Ana|491 "
                                "Comedor \xD1|526 1|561 2"));
  EXPECT_EQ(lineas[4], Esperado(117, "1 SCOAD|7 131|10 3,500|37 VAT|64 VAT|91 VAT"));
  EXPECT_EQ(lineas[5], Esperado(78, "1 SCOAL|7 351|10 8007|27 20240220|-60 1234,500|-78 -0,001"));
  EXPECT_EQ(lineas[6], Esperado(470, "1 SCOAQ|7 IV|27 9|30 Cocina|389 35001|398 ESP"));
  EXPECT_EQ(lineas[7], Esperado(30, "1 SCOAA|7 1|10 165"));
}

TEST_F(CoacsuTest, FormsOfPaymentBecomeMeansOrLeaveTheFieldOut) {
  const struct {
    const char* forma;
    const char* medio;
  } casos[] = {{"0", "60 "},  {"4", "60 "},  {"5", "20 "},  {"6", "42 "},
               {"10", "42 "}, {"11", "42 "}, {"20", "42 "}, {"30", "10 "},
               {"7", ""},     {"12", ""},    {"-1", ""},    {"NULL", ""}};
  InsertarResumen(7);
  for (const auto& [forma, medio] : casos) {
    std::filesystem::remove(fichero);
    base->Execute("UPDATE Facturas SET FormaPago = " + std::string(forma));
    ASSERT_TRUE(Procesar());
    const auto scoac = Registros()[1];
    const std::string_view campo(medio);
    EXPECT_EQ(scoac.size(), 362 + campo.size()) << forma;
    EXPECT_EQ(scoac.substr(290, campo.size()), campo) << forma;
    EXPECT_EQ(scoac.substr(scoac.size() - 7), "107.000") << forma;
  }
}

TEST_F(CoacsuTest, EveryMessageListsTheNotesOfAllInvoicesAndRunsAreAppended) {
  InsertarResumen(7);
  InsertarResumen(8, "Total = 200");
  EXPECT_TRUE(Procesar());
  const std::string mensaje = "SCOAC SCOAT SCOAP SCOAD SCOAL SCOAQ SCOAA SCOAL SCOAQ SCOAA ";
  EXPECT_EQ(Tags(Registros()), "RECTL " + mensaje + mensaje);
  EXPECT_TRUE(ProcesarFacturasCoacsu(100, "01/01/2023", "31/01/2023"));
  EXPECT_EQ(Tags(Registros()), "RECTL " + mensaje + mensaje + "RECTL ");
}

TEST_F(CoacsuTest, FailuresAreToldAndWhatWasWrittenStays) {
  std::ofstream(fichero, std::ios::binary) << "anterior\r\n";
  InsertarResumen(7);
  const struct {
    const char* cambio;
    const char* columna;
    const char* tags;
  } casos[] = {{"UPDATE Albaranes_F_Lineas SET PvpBase = NULL WHERE Cod_Articulo <> -1",
                "albarán 1: columna PvpBase: ", "anter RECTL SCOAC SCOAT SCOAP SCOAD "},
               {"UPDATE Facturas SET Impuestos = NULL",
                "columna Impuestos: ", "anter RECTL SCOAC SCOAT SCOAP SCOAD RECTL "}};
  for (const auto& [cambio, columna, tags] : casos) {
    base->Execute(cambio);
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(toolkit.Messages().back().title, "clsSeres:GenerarMensajeCoacsu");
    EXPECT_EQ(toolkit.Messages().back().text, std::string(columna) + "Uso no válido de Null");
    EXPECT_EQ(Tags(Registros()), tags);
  }
  EXPECT_EQ(toolkit.Messages().size(), 2U);
}

TEST_F(CoacsuTest, AnyFailingOperationEndsTheRun) {
  InsertarResumen(7);
  ASSERT_TRUE(Procesar());
  const int operaciones = entorno.fallo.Operaciones();
  const int sentencias = conexion->fallo.Operaciones();
  ASSERT_EQ(operaciones, 5);
  ASSERT_EQ(sentencias, 2);
  for (int k = 1; k <= sentencias; ++k) {
    conexion->fallo.FallarEn(k);
    EXPECT_FALSE(Procesar()) << k;
  }
  for (int k = 1; k <= operaciones; ++k) {
    entorno.fallo.FallarEn(k);
    EXPECT_FALSE(Procesar()) << k;
    EXPECT_EQ(toolkit.Messages().back().title, "clsSeres:ProcesarFacturasCoacsu") << k;
  }
}

}  // namespace
}  // namespace kvraedi
