#include <fstream>

#include "frame/base64.h"
#include "tests/facturae/escenario_facturae.h"

namespace kvraedi {
namespace {

using Lista = std::vector<std::string>;

class Documento : public EscenarioFacturae {};

TEST_F(Documento, FacturaOrdinariaEntera) {
  Construir(Factura());
  const pugi::xml_node raiz = documento.document_element();
  EXPECT_STREQ(raiz.name(), "fe:Facturae");
  EXPECT_STREQ(raiz.first_attribute().name(), "xmlns:fe");
  EXPECT_STREQ(raiz.first_attribute().value(),
               "http://www.facturae.es/Facturae/2014/v3.2.1/Facturae");
  EXPECT_STREQ(raiz.last_attribute().name(), "xmlns:ds");
  EXPECT_STREQ(raiz.last_attribute().value(), "http://www.w3.org/2000/09/xmldsig#");

  EXPECT_EQ(Hojas("FileHeader"), (Lista{
                                     "SchemaVersion=3.2.1",
                                     "Modality=I",
                                     "InvoiceIssuerType=EM",
                                     "Batch/BatchIdentifier=01202400000012300003",
                                     "Batch/InvoicesCount=1",
                                     "Batch/TotalInvoicesAmount/TotalAmount=107.00",
                                     "Batch/TotalOutstandingAmount/TotalAmount=107.00",
                                     "Batch/TotalExecutableAmount/TotalAmount=107.00",
                                     "Batch/InvoiceCurrencyCode=EUR",
                                 }));
  EXPECT_EQ(Hojas("Parties/SellerParty"),
            (Lista{
                "TaxIdentification/PersonTypeCode=J",
                "TaxIdentification/ResidenceTypeCode=R",
                "TaxIdentification/TaxIdentificationNumber=B35000000",
                "LegalEntity/CorporateName=Ñandú y Cía, S.L.",
                "LegalEntity/TradeName=Mayorista",
                "LegalEntity/AddressInSpain/Address=C/ Mayor, 1",
                "LegalEntity/AddressInSpain/PostCode=35001",
                "LegalEntity/AddressInSpain/Town=Las Palmas",
                "LegalEntity/AddressInSpain/Province=Las Palmas de GC",
                "LegalEntity/AddressInSpain/CountryCode=ESP",
            }));
  EXPECT_EQ(Hojas("Invoices/Invoice"),
            (Lista{
                "InvoiceHeader/InvoiceNumber=123",
                "InvoiceHeader/InvoiceSeriesCode=3",
                "InvoiceHeader/InvoiceDocumentType=FC",
                "InvoiceHeader/InvoiceClass=OO",
                "InvoiceIssueData/IssueDate=2024-02-20",
                "InvoiceIssueData/OperationDate=2024-02-20",
                "InvoiceIssueData/InvoiceCurrencyCode=EUR",
                "InvoiceIssueData/TaxCurrencyCode=EUR",
                "InvoiceIssueData/LanguageName=es",
                "TaxesOutputs/Tax/TaxTypeCode=03",
                "TaxesOutputs/Tax/TaxRate=7.00",
                "TaxesOutputs/Tax/TaxableBase/TotalAmount=100.00",
                "TaxesOutputs/Tax/TaxAmount/TotalAmount=7.00",
                "InvoiceTotals/TotalGrossAmount=100.00",
                "InvoiceTotals/TotalGrossAmountBeforeTaxes=100.00",
                "InvoiceTotals/TotalTaxOutputs=7.00",
                "InvoiceTotals/TotalTaxesWithheld=0.00",
                "InvoiceTotals/InvoiceTotal=107.00",
                "InvoiceTotals/TotalOutstandingAmount=107.00",
                "InvoiceTotals/TotalExecutableAmount=107.00",
                "Items/InvoiceLine/ItemDescription=Queso",
                "Items/InvoiceLine/Quantity=4.000000",
                "Items/InvoiceLine/UnitPriceWithoutTax=25.000000",
                "Items/InvoiceLine/TotalCost=100.000000",
                "Items/InvoiceLine/GrossAmount=100.000000",
                "Items/InvoiceLine/TaxesOutputs/Tax/TaxTypeCode=03",
                "Items/InvoiceLine/TaxesOutputs/Tax/TaxRate=7.00",
                "Items/InvoiceLine/TaxesOutputs/Tax/TaxableBase/TotalAmount=100.00",
                "Items/InvoiceLine/TaxesOutputs/Tax/TaxAmount/TotalAmount=7.00",
                "Items/InvoiceLine/ArticleCode=501",
            }));
  EXPECT_EQ(estado.emailEmisor, "facturas@nandu.es");
  EXPECT_EQ(estado.revisionUsada, 0);
}

TEST_F(Documento, CompradorYSusCentros) {
  base->Execute("UPDATE Clientes SET EDI_Rol_Comprador = 'L04' WHERE Codigo = 200");
  Construir(Factura());
  const Lista hojas = Hojas("Parties/BuyerParty");
  ASSERT_EQ(hojas.size(), 3 + 4 * 8 + 7);
  EXPECT_EQ(Lista(hojas.begin(), hojas.begin() + 11),
            (Lista{
                "TaxIdentification/PersonTypeCode=J",
                "TaxIdentification/ResidenceTypeCode=R",
                "TaxIdentification/TaxIdentificationNumber=P3530303A",
                "AdministrativeCentres/AdministrativeCentre/CentreCode=L01",
                "AdministrativeCentres/AdministrativeCentre/RoleTypeCode=01",
                "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Address=Plaza 1",
                "AdministrativeCentres/AdministrativeCentre/AddressInSpain/PostCode=35500",
                "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Town=Arrecife",
                "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Province=Las Palmas",
                "AdministrativeCentres/AdministrativeCentre/AddressInSpain/CountryCode=ESP",
                "AdministrativeCentres/AdministrativeCentre/CentreDescription=Oficina contable",
            }));
  EXPECT_EQ(Lista(hojas.end() - 7, hojas.end()),
            (Lista{
                "LegalEntity/CorporateName=Ayuntamiento de Puerto Azul",
                "LegalEntity/TradeName=-",
                "LegalEntity/AddressInSpain/Address=Pza. Mayor, 1",
                "LegalEntity/AddressInSpain/PostCode=35500",
                "LegalEntity/AddressInSpain/Town=Arrecife",
                "LegalEntity/AddressInSpain/Province=Las Palmas",
                "LegalEntity/AddressInSpain/CountryCode=ESP",
            }));
  for (const auto& [rol, codigo] :
       {std::pair{"01", "L01"}, {"02", "L02"}, {"03", "L03"}, {"04", "L04"}}) {
    EXPECT_EQ(Texto(std::string("//AdministrativeCentre[RoleTypeCode='") + rol + "']/CentreCode"),
              codigo);
  }
}

/// A change of one table, and what stands in the document then.
struct Cambio {
  std::string_view sql;
  std::string xpath;
  std::string texto;
};

void PrintTo(const Cambio& cambio, std::ostream* os) { *os << cambio.sql; }

class Campos : public EscenarioFacturae, public testing::WithParamInterface<Cambio> {};

TEST_P(Campos, SegunLaTabla) {
  const auto& [sql, xpath, texto] = GetParam();
  base->Execute(sql);
  Construir(Factura());
  EXPECT_EQ(Texto(xpath), texto);
}

const std::string kComprador = "Parties/BuyerParty/";
const std::string kResidencia = kComprador + "TaxIdentification/ResidenceTypeCode";
const std::string kNifComprador = kComprador + "TaxIdentification/TaxIdentificationNumber";
const std::string kVendedor = "Parties/SellerParty/";
const std::string kDireccion = "LegalEntity/AddressInSpain/";
const std::string kLargo(100, 'x');
const std::string kEnnes = [] {
  std::string texto;
  for (int i = 0; i < 40; ++i) texto += "ñ";
  return texto;
}();
const std::string kNombreLargo = "UPDATE Clientes SET Nombre = '" + kEnnes + "ñ'";
const std::string kDireccionLarga = "UPDATE Empresas SET Direccion = '" + kLargo + "'";
const std::string kProvinciaLarga = "UPDATE Clientes SET Provincia = '" + kLargo + "'";
const std::string kDescripcionLarga =
    "UPDATE Facturas_Lineas SET Descripcion = '" + std::string(2600, 'x') + "'";
const std::string kNifLargo = "UPDATE Empresas SET Nif = '" + kLargo.substr(0, 31) + "'";

INSTANTIATE_TEST_SUITE_P(
    Partes, Campos,
    testing::Values(
        Cambio{"UPDATE Clientes SET Cod_Pais = 33", kResidencia, "U"},
        Cambio{"UPDATE Clientes SET Cod_Pais = 33", kComprador + kDireccion + "CountryCode", "FRA"},
        Cambio{"UPDATE Clientes SET Cod_Pais = 1", kResidencia, "E"},
        Cambio{"UPDATE Clientes SET Cod_Pais = 30", kResidencia, "E"},
        Cambio{"UPDATE Clientes SET Cod_Pais = 99", kResidencia, "U"},
        Cambio{"UPDATE Clientes SET Tipo = NULL", kComprador + "TaxIdentification/PersonTypeCode",
               "F"},
        Cambio{"UPDATE Clientes SET Nif = 'B3'", kNifComprador, "ERROR"},
        Cambio{"UPDATE Clientes SET Nif = 'ñññ'", kNifComprador, "ñññ"},
        Cambio{"UPDATE Clientes SET Nif = 'ññ'", kNifComprador, "ERROR"},
        Cambio{kNifLargo, kVendedor + "TaxIdentification/TaxIdentificationNumber",
               kLargo.substr(0, 30)},
        Cambio{"UPDATE Clientes SET CP = 'L-2450'", kComprador + kDireccion + "PostCode", "00000"},
        Cambio{"UPDATE Clientes SET CP = '350012'", kComprador + kDireccion + "PostCode", "35001"},
        Cambio{"UPDATE Empresas SET CP = NULL", kVendedor + kDireccion + "PostCode", "00000"},
        Cambio{"UPDATE Empresas SET Nombre_2 = ''", kVendedor + "LegalEntity/TradeName", "-"},
        Cambio{kNombreLargo, kComprador + "LegalEntity/CorporateName", kEnnes},
        Cambio{kDireccionLarga, kVendedor + kDireccion + "Address", kLargo.substr(0, 80)},
        Cambio{kProvinciaLarga, kComprador + kDireccion + "Province", kLargo.substr(0, 20)}));

const std::string kLinea = "//InvoiceLine/";

INSTANTIATE_TEST_SUITE_P(
    Factura, Campos,
    testing::Values(
        Cambio{kDescripcionLarga, kLinea + "ItemDescription", std::string(2500, 'x')},
        Cambio{"UPDATE Facturas_Lineas SET Descripcion = 'a <b> & \"c\"'",
               kLinea + "ItemDescription", "a <b> & \"c\""},
        Cambio{"UPDATE Facturas_Lineas SET Unidades = NULL", kLinea + "TotalCost", "0.000000"},
        Cambio{"UPDATE Facturas_Lineas SET Precio = 2.3456, Unidades = 4.5", kLinea + "TotalCost",
               "10.560000"},
        Cambio{"UPDATE Facturas_Lineas SET Precio = 0.015, Unidades = 1", kLinea + "GrossAmount",
               "0.020000"},
        Cambio{"UPDATE Facturas_Lineas SET Precio = -2.5, Unidades = 0.0001",
               kLinea + "UnitPriceWithoutTax", "-2.500000"},
        Cambio{"UPDATE Facturas SET Fecha = '31/12/2019'", kLinea + "TaxesOutputs/Tax/TaxRate",
               "5.00"},
        Cambio{"UPDATE Facturas SET Fecha = '31/12/2009'", kLinea + "TaxesOutputs/Tax/TaxRate",
               "0.00"},
        Cambio{"UPDATE Facturas SET Impuestos = -7", "//TotalTaxOutputs", "0.00"},
        Cambio{"UPDATE Facturas SET Total = -1234567.895", "//InvoiceTotal", "-1234567.90"},
        Cambio{"DELETE FROM Facturas_Impuestos", "//Invoice/TaxesOutputs/Tax/TaxAmount/TotalAmount",
               "0.00"}));

struct Nulo {
  std::string_view sql;
  bool error;
};

void PrintTo(const Nulo& nulo, std::ostream* os) { *os << nulo.sql; }

class Nulos : public EscenarioFacturae, public testing::WithParamInterface<Nulo> {};

TEST_P(Nulos, ParanLoQueSeEscribe) {
  base->Execute(GetParam().sql);
  if (!GetParam().error) {
    Construir(Factura());
    return;
  }
  try {
    Construir(Factura());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kErrorInvalidNull);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Columnas, Nulos,
    testing::Values(Nulo{"UPDATE Empresas SET Nif = NULL", true},
                    Nulo{"UPDATE Empresas SET Nombre_2 = NULL", true},
                    Nulo{"UPDATE Empresas SET email = NULL", false},
                    Nulo{"UPDATE Empresas SET Telefono = NULL, Fax = NULL, Pais = NULL", false},
                    Nulo{"UPDATE Clientes SET Nombre_Comercial = NULL", true},
                    Nulo{"UPDATE Clientes SET Nombre_Comercial = NULL, Tipo = 1", false},
                    Nulo{"UPDATE Clientes SET Nif = NULL, Tipo = 1", true},
                    Nulo{"UPDATE Clientes SET Cod_Pais = NULL", true},
                    Nulo{"UPDATE Clientes SET EDI_Rol_Fiscal = NULL", true},
                    Nulo{"UPDATE Clientes SET EDI_Rol_Pagador = 'L99'", true},
                    Nulo{"UPDATE Clientes SET EDI_Rol_Comprador = 'L99'", false},
                    Nulo{"UPDATE EDI_Centros_Administrativos SET Descripcion = NULL", true},
                    Nulo{"UPDATE EDI_Centros_Administrativos SET Cod_Pais = NULL", true},
                    Nulo{"UPDATE Facturas SET ImporteB = NULL", true},
                    Nulo{"UPDATE Facturas SET Impuestos = NULL", true},
                    Nulo{"UPDATE Facturas SET Total = NULL", true},
                    Nulo{"UPDATE Facturas SET Dto1 = NULL, Dto2 = NULL", false},
                    Nulo{"UPDATE Facturas_Impuestos SET Base = NULL, Importe = NULL", false},
                    Nulo{"UPDATE Facturas_Lineas SET Descripcion = NULL, Impuesto = NULL", false},
                    Nulo{"UPDATE Clientes SET Tipo_Venta = NULL, Tipo_Impresion = NULL", false}));

/// General discounts and what follows TotalGrossAmount up to the taxes.
struct Descuento {
  std::string_view cambio;
  Lista esperado;
};

void PrintTo(const Descuento& caso, std::ostream* os) { *os << caso.cambio; }

class Descuentos : public EscenarioFacturae, public testing::WithParamInterface<Descuento> {};

TEST_P(Descuentos, Generales) {
  base->Execute("UPDATE Facturas SET " + std::string(GetParam().cambio));
  Construir(Factura());
  Lista hojas = Hojas("//InvoiceTotals");
  ASSERT_GT(hojas.size(), 6U);
  EXPECT_EQ(Lista(hojas.begin() + 1, hojas.end() - 5), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, Descuentos,
    testing::Values(Descuento{"ImporteB = 200, Dto1 = 10, Dto2 = 5",
                              {"GeneralDiscounts/Discount/DiscountReason=Descuento 1",
                               "GeneralDiscounts/Discount/DiscountRate=10.0000",
                               "GeneralDiscounts/Discount/DiscountAmount=20.000000",
                               "GeneralDiscounts/Discount/DiscountReason=Descuento 2",
                               "GeneralDiscounts/Discount/DiscountRate=4.5000",
                               "GeneralDiscounts/Discount/DiscountAmount=9.000000",
                               "TotalGeneralDiscounts=29.00", "TotalGeneralSurcharges=0.00",
                               "TotalGrossAmountBeforeTaxes=171.00"}},
                    Descuento{"ImporteB = -200, Dto2 = 5",
                              {"GeneralDiscounts/Discount/DiscountReason=Descuento 2",
                               "GeneralDiscounts/Discount/DiscountRate=5.0000",
                               "GeneralDiscounts/Discount/DiscountAmount=-10.000000",
                               "TotalGeneralDiscounts=-10.00", "TotalGeneralSurcharges=0.00",
                               "TotalGrossAmountBeforeTaxes=-190.00"}},
                    Descuento{"ImporteB = 0, Dto1 = 10, Dto2 = 5",
                              {"GeneralDiscounts/Discount/DiscountReason=Descuento 1",
                               "GeneralDiscounts/Discount/DiscountRate=10.0000",
                               "GeneralDiscounts/Discount/DiscountAmount=0.000000",
                               "TotalGrossAmountBeforeTaxes=0.00"}},
                    Descuento{"ImporteB = 0, Dto2 = 5", {"TotalGrossAmountBeforeTaxes=0.00"}},
                    Descuento{"ImporteB = 33.35, Dto1 = 33.3333, Dto2 = 7.77",
                              {"GeneralDiscounts/Discount/DiscountReason=Descuento 1",
                               "GeneralDiscounts/Discount/DiscountRate=33.3333",
                               "GeneralDiscounts/Discount/DiscountAmount=11.120000",
                               "GeneralDiscounts/Discount/DiscountReason=Descuento 2",
                               "GeneralDiscounts/Discount/DiscountRate=5.1792",
                               "GeneralDiscounts/Discount/DiscountAmount=1.730000",
                               "TotalGeneralDiscounts=12.85", "TotalGeneralSurcharges=0.00",
                               "TotalGrossAmountBeforeTaxes=20.50"}},
                    Descuento{"ImporteB = 100, Dto1 = -5",
                              {"TotalGeneralDiscounts=-5.00", "TotalGeneralSurcharges=0.00",
                               "TotalGrossAmountBeforeTaxes=105.00"}}));

/// A line of the invoice: units, price and discount, and the discount's amount and the gross.
struct LineaConDescuento {
  std::string_view valores;
  std::string importe;
  std::string bruto;
};

void PrintTo(const LineaConDescuento& caso, std::ostream* os) { *os << caso.valores; }

class DescuentoDeLinea : public EscenarioFacturae,
                         public testing::WithParamInterface<LineaConDescuento> {};

TEST_P(DescuentoDeLinea, Importe) {
  base->Execute("UPDATE Facturas_Lineas SET " + std::string(GetParam().valores));
  Construir(Factura());
  EXPECT_EQ(Texto("//InvoiceLine/DiscountsAndRebates/Discount/DiscountAmount"), GetParam().importe);
  EXPECT_EQ(Texto("//InvoiceLine/GrossAmount"), GetParam().bruto);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, DescuentoDeLinea,
    testing::Values(LineaConDescuento{"Unidades = 1, Precio = 123.45, PDescuento = 10", "12.3400",
                                      "111.110000"},
                    LineaConDescuento{"Unidades = 1, Precio = 123.55, PDescuento = 10", "12.3500",
                                      "111.200000"},
                    LineaConDescuento{"Unidades = 1, Precio = 123.455, PDescuento = 10", "12.3400",
                                      "111.110000"},
                    LineaConDescuento{"Unidades = 1, Precio = 123.456, PDescuento = 10", "12.3500",
                                      "111.110000"},
                    LineaConDescuento{"Unidades = 3, Precio = 9.99, PDescuento = 33.3333", "9.9900",
                                      "19.980000"},
                    LineaConDescuento{"Unidades = -1, Precio = 123.45, PDescuento = 10", "-12.3500",
                                      "-111.110000"},
                    LineaConDescuento{"Unidades = 1, Precio = 10, PDescuento = 0", "",
                                      "10.000000"}));

TEST_F(Documento, LineaUnicaDeResumen) {
  base->Execute("UPDATE Clientes SET Tipo_Venta = 1, Tipo_Impresion = 0 WHERE Codigo = 200");
  base->Execute("UPDATE Facturas_Lineas SET Cod_Articulo = -1, Precio = 25.555");
  Construir(Factura());
  EXPECT_EQ(Texto("//InvoiceLine/Quantity"), "1.000000");
  EXPECT_EQ(Texto("//InvoiceLine/UnitPriceWithoutTax"), "25.555000");
  EXPECT_EQ(Texto("//InvoiceLine/TotalCost"), "25.560000");
  EXPECT_EQ(Texto("//InvoiceLine/ArticleCode"), "1");

  base->Execute("UPDATE Clientes SET Tipo_Impresion = 1 WHERE Codigo = 200");
  Construir(Factura());
  EXPECT_EQ(Cuantos("//InvoiceLine"), 0U) << "a line of text is not billed";
}

TEST_F(Documento, EmpresaExenta) {
  empresa->igic = false;
  base->Execute(
      "INSERT INTO Facturas_Impuestos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo, "
      "Base, Importe) VALUES (1, 2024, 3, 123, 0, 2, 50.5, 1.5)");
  base->Execute("UPDATE Facturas SET Impuestos = NULL");
  Construir(Factura());
  EXPECT_EQ(Hojas("//Invoice/TaxesOutputs"),
            (Lista{"Tax/TaxTypeCode=03", "Tax/TaxRate=0.00", "Tax/TaxableBase/TotalAmount=150.50",
                   "Tax/TaxAmount/TotalAmount=0.00"}));
  EXPECT_EQ(Texto("//TotalTaxOutputs"), "0.00");
  EXPECT_EQ(Texto("//InvoiceLine/TaxesOutputs/Tax/TaxRate"), "0.00");
  EXPECT_EQ(Texto("//InvoiceLine/TaxesOutputs/Tax/TaxAmount/TotalAmount"), "0.00");
  EXPECT_EQ(Hojas("//InvoiceLine/SpecialTaxableEvent"),
            (Lista{"SpecialTaxableEventCode=01",
                   "SpecialTaxableEventReason=[03] - Comerciante Minorista Exento de IGIC"}));
}

TEST_F(Documento, TicketFacturado) {
  base->Run(R"(
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 1, 501, 2, 5.35, 10, 10.7, 9.63, 1, 0);
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 2, 999, 3, 2.14, 0, 6.42, 4.28, 2, 1);
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 3, -1, 0, 0, 0, 0, 0, 0, 0);
)");
  Construir(Ticket());
  EXPECT_EQ(Texto("//BatchIdentifier"), "0100203050324000000077");
  EXPECT_EQ(Texto("//InvoiceHeader/InvoiceNumber"), "900");
  EXPECT_EQ(Texto("//InvoiceHeader/InvoiceSeriesCode"), "52");
  EXPECT_EQ(Texto("//IssueDate"), "2024-03-07");
  EXPECT_EQ(Cuantos("//Invoice/TaxesOutputs/Tax"), 0U) << "a taxed ticket has none";
  EXPECT_EQ(Texto("//TotalGrossAmount"), "16.05");
  EXPECT_EQ(Texto("//TotalTaxOutputs"), "0.00");
  EXPECT_EQ(Cuantos("//InvoiceLine"), 2U);
  EXPECT_EQ(Texto("//InvoiceLine[1]/ItemDescription"), "Queso");
  EXPECT_EQ(Texto("//InvoiceLine[1]/GrossAmount"), "9.630000");
  EXPECT_EQ(Texto("//InvoiceLine[1]/DiscountsAndRebates/Discount/DiscountAmount"), "1.0700");
  EXPECT_EQ(Texto("//InvoiceLine[2]/ItemDescription"), "") << "an article that is not on file";
  EXPECT_EQ(Texto("//InvoiceLine[2]/GrossAmount"), "6.420000") << "of an offer nothing is taken";
  EXPECT_EQ(Texto("//InvoiceLine[2]/TaxesOutputs/Tax/TaxRate"), "3.00");

  empresa->igic = false;
  Construir(Ticket());
  EXPECT_EQ(Texto("//Invoice/TaxesOutputs/Tax/TaxableBase/TotalAmount"), "16.05");
}

TEST_F(Documento, IdentificadoresDeLote) {
  struct Caso {
    facturae::ClaveDocumento clave;
    std::string identificador;
  };
  base->Execute("UPDATE Facturas SET TipoDoc = 1, Serie = 5");
  const Caso casos[] = {
      {{.ejercicio = 2024, .serie = 5, .codigo = 123, .tipoDoc = 1}, "01202400000012301005"},
      {Ticket(), "0100203050324000000077"},
      {Factura(124), ""},
  };
  for (const auto& [clave, identificador] : casos) {
    facturae::CalculaTotalesFacturas(estado, clave);
    EXPECT_EQ(estado.identificadorLote, identificador);
    EXPECT_EQ(estado.numFacturas, identificador.empty() ? 0 : 1);
  }
}

TEST_F(Documento, SinFacturaNiCliente) {
  base->Execute("DELETE FROM Clientes");
  Construir(Factura(124));
  EXPECT_EQ(Hojas("Parties"), (Lista{"SellerParty/TaxIdentification=", "BuyerParty="}));
  EXPECT_EQ(Hojas("Invoices"), Lista{});
  EXPECT_EQ(Cuantos("Invoices"), 1U);
  EXPECT_EQ(Texto("//Modality"), "I");
  EXPECT_EQ(Texto("//InvoicesCount"), "");
}

TEST_F(Documento, PersonaFisica) {
  base->Execute("UPDATE Clientes SET Tipo = 1");
  estado.tipoPersona = "F";
  Construir(Factura());
  EXPECT_EQ(Texto("Parties/BuyerParty/TaxIdentification/PersonTypeCode"), "F");
  EXPECT_EQ(Cuantos("//LegalEntity"), 0U);
  EXPECT_EQ(Cuantos("//AdministrativeCentre"), 3U);
}

TEST_F(Documento, Rectificativa) {
  struct Caso {
    std::string_view envio;  ///< columns of the earlier sending; "" is none
    std::int16_t revision;
    std::string numero;
    std::int16_t usada;
  };
  const Caso casos[] = {
      {"", 0, "123/R0", 0},        {"3, 1, 2", 0, "123/R3", 3}, {"3, 1, 2", 7, "123/R7", 0},
      {"2, 1, 2", 0, "123/R0", 0}, {"3, 2, 2", 0, "123/R0", 0},
  };
  estado.claseFactura = "OR";
  for (const auto& [envio, revision, numero, usada] : casos) {
    base->Execute("DELETE FROM EDI_Envio_Facturas");
    if (!envio.empty()) {
      base->Execute(
          "INSERT INTO EDI_Envio_Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc,"
          " Cod_EDIPlat, Cod_EDITipoMsg, Revision) VALUES (1, 2024, 3, 123, 0, " +
          std::string(envio) + ")");
    }
    Construir(Factura(), revision);
    EXPECT_EQ(Texto("//InvoiceHeader/InvoiceNumber"), numero) << envio;
    EXPECT_EQ(estado.revisionUsada, usada) << envio;
  }
  EXPECT_EQ(Hojas("//Corrective"),
            (Lista{"InvoiceNumber=123", "InvoiceSeriesCode=3", "ReasonCode=10",
                   "ReasonDescription=Detalle Operación", "TaxPeriod/StartDate=2024-01-01",
                   "TaxPeriod/EndDate=2024-12-31", "CorrectionMethod=01",
                   "CorrectionMethodDescription=Rectificación íntegra"}));
}

TEST_F(Documento, RectificativaDeTicket) {
  base->Execute(
      "INSERT INTO EDI_Envio_Facturas (Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT,"
      " Codigo_FT, Cod_EDIPlat, Cod_EDITipoMsg, Revision) VALUES (1, 2, 3, '05/03/2024', 77, 3, 1,"
      " 32767)");
  estado.claseFactura = "OR";
  EXPECT_THROW(Construir(Ticket()), Error) << "the next revision has no room";
  base->Execute("UPDATE EDI_Envio_Facturas SET Revision = 0");
  Construir(Ticket());
  EXPECT_EQ(Texto("//InvoiceHeader/InvoiceNumber"), "900/R1");
  EXPECT_EQ(Texto("//Corrective/InvoiceNumber"), "900");
}

class Anexos : public EscenarioFacturae {
 protected:
  void Anexar(std::string_view nombre, std::string_view bytes,
              std::string_view clave = "1, 2024, 3, 123, 0") {
    base->Execute(
        "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, Serie,"
        " Codigo, TipoDoc, NombreAnexo, DescripcionAnexo, Stream) VALUES (3, 1, " +
        std::string(clave) + ", '" + std::string(nombre) + "', 'Descripción', 0x" +
        Hexadecimal(bytes) + ")");
  }
  static std::string Hexadecimal(std::string_view bytes) {
    constexpr std::string_view kCifras = "0123456789ABCDEF";
    std::string texto;
    for (const char c : bytes) {
      texto += kCifras[static_cast<unsigned char>(c) / 16];
      texto += kCifras[static_cast<unsigned char>(c) % 16];
    }
    return texto;
  }
};

TEST_F(Anexos, UnElementoPorFichero) {
  Anexar("informe.final.pdf", "%PDF-1.4");
  Anexar("L''hort", std::string(200, '\xFF'));
  Anexar("vacio.pdf", "");
  Anexar("de otra factura.pdf", "x", "1, 2024, 3, 124, 0");
  Construir(Factura());
  EXPECT_EQ(Cuantos("//Attachment"), 2U);
  EXPECT_EQ(Hojas("//Attachment[1]"),
            (Lista{"AttachmentFormat=pdf", "AttachmentEncoding=BASE64",
                   "AttachmentDescription=Descripción", "AttachmentData=JVBERi0xLjQ="}));
  EXPECT_EQ(Texto("//Attachment[2]/AttachmentFormat"), "L'hort");
  EXPECT_EQ(Texto("//Attachment[2]/AttachmentData"), CodificaBase64(std::string(200, '\xFF')));
  EXPECT_EQ(std::filesystem::file_size(anexos / "informe.final.pdf"), 8U);
  EXPECT_FALSE(std::filesystem::exists(anexos / "vacio.pdf"));
}

TEST_F(Anexos, NoSalenDeSuCarpeta) {
  Anexar("..\\..\\fuera.pdf", "%PDF-1.4");
  Construir(Factura());
  EXPECT_TRUE(std::filesystem::exists(anexos / "fuera.pdf"));

  Anexar("x/..", "%PDF-1.4");
  EXPECT_THROW(Construir(Factura()), Error);
}

#if !defined(__SANITIZE_ADDRESS__)
/// Megabytes: the most that the process has held since the mark was set, and what it holds.
struct Memoria {
  static void Marcar() { std::ofstream("/proc/self/clear_refs") << '5'; }
  static double Leer(std::string_view clave) {
    std::ifstream estado("/proc/self/status");
    for (std::string linea; std::getline(estado, linea);) {
      if (linea.starts_with(clave)) return std::stod(linea.substr(clave.size())) / 1024;
    }
    return 0;
  }
};

TEST_F(Anexos, UnoDeCincuentaMegasNoLlenaLaMemoria) {
  constexpr std::size_t kMega = std::size_t{1024} * 1024;
  Anexar("plano.pdf", "x");
  base->UpdateBlob("SELECT Stream FROM EDI_Anexos", "Stream", Bytes(50 * kMega, std::byte{0x5A}));
  Memoria::Marcar();
  const double antes = Memoria::Leer("VmRSS:");
  {
    const auto xml = SuiteActual().NuevoDocumentoXml(EntornoActual());
    facturae::ConstruirDocumento(estado, *xml, 200, Factura(), 0);
    xml->Guardar(fichero);
  }
  const double subida = Memoria::Leer("VmHWM:") - antes;
  EXPECT_GT(std::filesystem::file_size(fichero), 67 * kMega);
  EXPECT_GT(subida, 50);
  EXPECT_LT(subida, 250);
}
#endif

TEST_F(Documento, AnexosDeTicketYSinAnexos) {
  Construir(Ticket());
  EXPECT_EQ(Cuantos("//AdditionalData"), 0U);
  base->Execute(
      "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa_FT, Cod_Almacen_FT,"
      " Caja_FT, Fecha_FT, Codigo_FT, NombreAnexo, DescripcionAnexo, Stream)"
      " VALUES (3, 1, 1, 2, 3, '05/03/2024', 77, 'a.PDF', '', 0x00)");
  Construir(Ticket());
  EXPECT_EQ(Texto("//AdditionalData/RelatedDocuments/Attachment/AttachmentFormat"), "PDF");
  EXPECT_EQ(Texto("//AttachmentData"), "AA==");
}

}  // namespace
}  // namespace kvraedi
