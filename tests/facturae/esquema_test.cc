#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/facturae/escenario_facturae.h"

namespace kvraedi {
namespace {

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

TEST_F(Esquema, AceptaLoQuePuedeYRechazaLoQueLosDatosEstropean) {
  const std::string lineaTicket =
      "INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 1, 501, 2, 5.35, 10, 10.7,"
      " 9.63, 1, 0)";
  const struct {
    std::string cambio;
    std::string queja;  ///< words of what the validator says; "" when it accepts the document
    bool ticket = false;
    bool gravada = true;
  } casos[] = {
      {"UPDATE Facturas SET Cliente = 200", ""},
      {"UPDATE Facturas SET Cliente = 200", "", false, false},
      {"UPDATE Facturas SET Dto1 = 10, Dto2 = 5, ImporteB = 200", ""},
      {"UPDATE Facturas_Lineas SET PDescuento = 12.5", ""},
      {"UPDATE Facturas SET ImporteB = -100, Impuestos = -7, Total = -107", ""},
      {"UPDATE Clientes SET EDI_Rol_Comprador = 'L04'", ""},
      {"UPDATE Clientes SET Cod_Pais = 33", ""},
      {"UPDATE Clientes SET Nif = ''", ""},
      {lineaTicket, "", true, false},
      {lineaTicket, "Element 'TaxesOutputs': Missing child element", true},
      {"UPDATE Clientes SET Tipo = 1", "Element 'BuyerParty': Missing child element"},
      {"UPDATE Clientes SET EDI_Rol_Fiscal = 'L0135900100';"
       "UPDATE EDI_Centros_Administrativos SET Codigo = 'L0135900100' WHERE Codigo = 'L01'",
       "Element 'CentreCode'"},
      {"UPDATE EDI_Centros_Administrativos SET Localidad ="
       " 'Una localidad de nombre más largo que cincuenta caracteres'",
       "Element 'Town'"},
      {"UPDATE EDI_Centros_Administrativos SET Provincia = 'Santa Cruz de Tenerife'",
       "Element 'Province'"},
      {"UPDATE Paises SET ISO3Codigo = 'ESX'", "Element 'CountryCode'"},
      {"UPDATE EDI_Centros_Administrativos SET CodigoPostal = ''", "Element 'PostCode'"},
      {"UPDATE Clientes SET CP = '3550'", "Element 'PostCode'"},
      {"UPDATE Clientes SET CP = '-3550'", "Element 'PostCode': [facet 'pattern']"},
      {"UPDATE EDI_Anexos SET NombreAnexo = 'a.PDF'", "Element 'AttachmentFormat'"},
      {"DELETE FROM Facturas_Lineas", "Element 'Items': Missing child element"},
      {"UPDATE Empresas SET Nombre_2 = 'Un nombre comercial de más de cuarenta caracteres'",
       "Element 'TradeName'"}};
  Anexar("a.pdf", "25");
  for (const auto& caso : casos) {
    SCOPED_TRACE(caso.cambio);
    base->BeginTrans();
    empresa->igic = caso.gravada;
    base->Run(caso.cambio);
    Construir(caso.ticket ? Ticket() : Factura());
    const std::string queja = Validar();
    if (caso.queja.empty()) {
      EXPECT_EQ(queja, "");
    } else {
      EXPECT_NE(queja.find(caso.queja), std::string::npos) << queja;
    }
    base->RollbackTrans();
  }
  estado.claseFactura = "OR";
  Construir(Factura(), 1);
  EXPECT_EQ(Validar(), "");
}

}  // namespace
}  // namespace kvraedi
