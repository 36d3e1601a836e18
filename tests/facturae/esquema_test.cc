#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/facturae/escenario_facturae.h"

namespace kvraedi {
namespace {

/// A change of the scenario and what the published schema says of the document then: nothing, or
/// something that holds the given words.
struct Caso {
  std::string_view nombre;
  std::string_view sql;
  std::string_view queja;
  bool ticket = false;
  bool gravada = true;
};

void PrintTo(const Caso& caso, std::ostream* os) { *os << caso.nombre; }

class Esquema : public EscenarioFacturae {
 protected:
  void SetUp() override {
    EscenarioFacturae::SetUp();
    if (!std::filesystem::exists(esquema)) GTEST_SKIP() << "no está el esquema: " << esquema;
    if (std::system("xmllint --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no está xmllint";
  }

  /// What the validator says; "" when it accepts the document.
  std::string Validar() const {
    const auto salida = carpeta / "xmllint.txt";
    const std::string orden = "xmllint --nonet --noout --schema '" + esquema.string() + "' '" +
                              fichero.string() + "' >'" + salida.string() + "' 2>&1";
    const bool valido = std::system(orden.c_str()) == 0;
    std::stringstream texto;
    texto << std::ifstream(salida).rdbuf();
    return valido ? "" : texto.str();
  }

  const std::filesystem::path esquema = std::filesystem::path(ESQUEMAS) / "Facturaev3_2_1.xsd";
};

class EsquemaPorCasos : public Esquema, public testing::WithParamInterface<Caso> {};

TEST_P(EsquemaPorCasos, Valida) {
  const Caso& caso = GetParam();
  empresa->igic = caso.gravada;
  if (!caso.sql.empty()) base->Run(caso.sql);
  Construir(caso.ticket ? Ticket() : Factura());
  const std::string queja = Validar();
  if (caso.queja.empty()) {
    EXPECT_EQ(queja, "");
  } else {
    EXPECT_NE(queja.find(caso.queja), std::string::npos) << queja;
  }
}

TEST_F(Esquema, AceptaLasRectificativas) {
  estado.claseFactura = "OR";
  Construir(Factura(), 1);
  EXPECT_EQ(Validar(), "");
}

constexpr std::string_view kLineaTicket =
    "INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 1, 501, 2, 5.35, 10, 10.7,"
    " 9.63, 1, 0)";
constexpr std::string_view kAnexo =
    "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, Serie,"
    " Codigo, TipoDoc, NombreAnexo, DescripcionAnexo, Stream) VALUES (3, 1, 1, 2024, 3, 123, 0,"
    " 'a.pdf', 'Contrato', 0x255044462D)";
constexpr std::string_view kAnexoMayusculas =
    "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, Serie,"
    " Codigo, TipoDoc, NombreAnexo, DescripcionAnexo, Stream) VALUES (3, 1, 1, 2024, 3, 123, 0,"
    " 'a.PDF', 'Contrato', 0x255044462D)";

INSTANTIATE_TEST_SUITE_P(
    Ordinarios, EsquemaPorCasos,
    testing::Values(
        Caso{"factura", "", ""}, Caso{"exenta", "", "", false, false},
        Caso{"descuentos", "UPDATE Facturas SET Dto1 = 10, Dto2 = 5, ImporteB = 200", ""},
        Caso{"descuento de línea", "UPDATE Facturas_Lineas SET PDescuento = 12.5", ""},
        Caso{"abono", "UPDATE Facturas SET ImporteB = -100, Impuestos = -7, Total = -107", ""},
        Caso{"cuatro centros", "UPDATE Clientes SET EDI_Rol_Comprador = 'L04'", ""},
        Caso{"comprador extranjero", "UPDATE Clientes SET Cod_Pais = 33", ""},
        Caso{"NIF corto", "UPDATE Clientes SET Nif = ''", ""}, Caso{"anexo", kAnexo, ""},
        Caso{"ticket de empresa exenta", kLineaTicket, "", true, false}));

INSTANTIATE_TEST_SUITE_P(
    Rechazados, EsquemaPorCasos,
    testing::Values(
        Caso{"ticket gravado", kLineaTicket, "Element 'TaxesOutputs': Missing child element", true},
        Caso{"persona física", "UPDATE Clientes SET Tipo = 1",
             "Element 'BuyerParty': Missing child element"},
        Caso{"centro con código largo",
             "UPDATE Clientes SET EDI_Rol_Fiscal = 'L0135900100'; UPDATE"
             " EDI_Centros_Administrativos SET Codigo = 'L0135900100' WHERE Codigo = 'L01'",
             "Element 'CentreCode'"},
        Caso{"población larga en un centro",
             "UPDATE EDI_Centros_Administrativos SET Localidad ="
             " 'Una localidad de nombre mucho más largo que cincuenta caracteres'",
             "Element 'Town'"},
        Caso{"centro sin código postal", "UPDATE EDI_Centros_Administrativos SET CodigoPostal = ''",
             "Element 'PostCode'"},
        Caso{"código postal corto", "UPDATE Clientes SET CP = '3550'", "Element 'PostCode'"},
        Caso{"anexo con extensión en mayúsculas", kAnexoMayusculas, "Element 'AttachmentFormat'"},
        Caso{"factura sin líneas", "DELETE FROM Facturas_Lineas",
             "Element 'Items': Missing child element"},
        Caso{"nombre comercial de la empresa largo",
             "UPDATE Empresas SET Nombre_2 = 'Un nombre comercial de más de cuarenta caracteres'",
             "Element 'TradeName'"}));

}  // namespace
}  // namespace kvraedi
