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

  EXPECT_EQ(
      Hojas("FileHeader"),
      (Lista{"SchemaVersion=3.2.1", "Modality=I", "InvoiceIssuerType=EM",
             "Batch/BatchIdentifier=01202400000012300003", "Batch/InvoicesCount=1",
             "Batch/TotalInvoicesAmount/TotalAmount=107.00",
             "Batch/TotalOutstandingAmount/TotalAmount=107.00",
             "Batch/TotalExecutableAmount/TotalAmount=107.00", "Batch/InvoiceCurrencyCode=EUR"}));
  EXPECT_EQ(Hojas("Parties/SellerParty"),
            (Lista{"TaxIdentification/PersonTypeCode=J", "TaxIdentification/ResidenceTypeCode=R",
                   "TaxIdentification/TaxIdentificationNumber=B35000000",
                   "LegalEntity/CorporateName=Ñandú y Cía, S.L.", "LegalEntity/TradeName=Mayorista",
                   "LegalEntity/AddressInSpain/Address=C/ Mayor, 1",
                   "LegalEntity/AddressInSpain/PostCode=35001",
                   "LegalEntity/AddressInSpain/Town=Las Palmas",
                   "LegalEntity/AddressInSpain/Province=Las Palmas de GC",
                   "LegalEntity/AddressInSpain/CountryCode=ESP"}));
  EXPECT_EQ(Hojas("Invoices/Invoice"),
            (Lista{"InvoiceHeader/InvoiceNumber=123",
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
                   "Items/InvoiceLine/ArticleCode=501"}));
  EXPECT_EQ(estado.emailEmisor, "facturas@nandu.es");
  EXPECT_EQ(estado.revisionUsada, 0);
}

TEST_F(Documento, CompradorYSusCentros) {
  base->Execute("UPDATE Clientes SET EDI_Rol_Comprador = 'L04' WHERE Codigo = 200");
  Construir(Factura());
  const Lista hojas = Hojas("Parties/BuyerParty");
  ASSERT_EQ(hojas.size(), 3 + 4 * 8 + 7);
  EXPECT_EQ(
      Lista(hojas.begin(), hojas.begin() + 11),
      (Lista{"TaxIdentification/PersonTypeCode=J", "TaxIdentification/ResidenceTypeCode=R",
             "TaxIdentification/TaxIdentificationNumber=P3530303A",
             "AdministrativeCentres/AdministrativeCentre/CentreCode=L01",
             "AdministrativeCentres/AdministrativeCentre/RoleTypeCode=01",
             "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Address=Plaza 1",
             "AdministrativeCentres/AdministrativeCentre/AddressInSpain/PostCode=35500",
             "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Town=Arrecife",
             "AdministrativeCentres/AdministrativeCentre/AddressInSpain/Province=Las Palmas",
             "AdministrativeCentres/AdministrativeCentre/AddressInSpain/CountryCode=ESP",
             "AdministrativeCentres/AdministrativeCentre/CentreDescription=Oficina contable"}));
  EXPECT_EQ(Lista(hojas.end() - 7, hojas.end()),
            (Lista{"LegalEntity/CorporateName=Ayuntamiento de Puerto Azul",
                   "LegalEntity/TradeName=-", "LegalEntity/AddressInSpain/Address=Pza. Mayor, 1",
                   "LegalEntity/AddressInSpain/PostCode=35500",
                   "LegalEntity/AddressInSpain/Town=Arrecife",
                   "LegalEntity/AddressInSpain/Province=Las Palmas",
                   "LegalEntity/AddressInSpain/CountryCode=ESP"}));
  for (const auto& [rol, codigo] :
       {std::pair{"01", "L01"}, {"02", "L02"}, {"03", "L03"}, {"04", "L04"}}) {
    EXPECT_EQ(Texto(std::string("//AdministrativeCentre[RoleTypeCode='") + rol + "']/CentreCode"),
              codigo);
  }
}

/// Builds the document after a change that is undone afterwards.
class Cambios : public EscenarioFacturae {
 protected:
  template <class Comprobar>
  void Con(const std::string& cambio, const Comprobar& comprobar) {
    SCOPED_TRACE(cambio.substr(0, 200));
    base->BeginTrans();
    base->Run(cambio);
    comprobar();
    base->RollbackTrans();
  }
};

const std::string kComprador = "Parties/BuyerParty/";
const std::string kResidencia = kComprador + "TaxIdentification/ResidenceTypeCode";
const std::string kNifComprador = kComprador + "TaxIdentification/TaxIdentificationNumber";
const std::string kVendedor = "Parties/SellerParty/";
const std::string kDireccion = "LegalEntity/AddressInSpain/";
const std::string kLinea = "//InvoiceLine/";
const std::string kCuotaLinea = kLinea + "TaxesOutputs/Tax/TaxAmount/TotalAmount";
const std::string kTasaLinea = kLinea + "TaxesOutputs/Tax/TaxRate";

std::string Equis(std::size_t cuantas) { return std::string(cuantas, 'x'); }
std::string Ennes(int cuantas) {
  std::string texto;
  for (int i = 0; i < cuantas; ++i) texto += "ñ";
  return texto;
}

TEST_F(Cambios, CadaCampoSegunSuColumna) {
  const struct {
    std::string cambio, xpath, texto;
  } casos[] = {
      {"Clientes SET Cod_Pais = 33", kResidencia, "U"},
      {"Clientes SET Cod_Pais = 33", kComprador + kDireccion + "CountryCode", "FRA"},
      {"Clientes SET Cod_Pais = 1", kResidencia, "E"},
      {"Clientes SET Cod_Pais = 30", kResidencia, "E"},
      {"Clientes SET Cod_Pais = 99", kResidencia, "U"},
      {"Clientes SET Tipo = NULL", kComprador + "TaxIdentification/PersonTypeCode", "F"},
      {"Clientes SET Nif = 'B3'", kNifComprador, "ERROR"},
      {"Clientes SET Nif = 'ñññ'", kNifComprador, "ñññ"},
      {"Clientes SET Nif = 'ññ'", kNifComprador, "ERROR"},
      {"Empresas SET Nif = '" + Equis(31) + "'",
       kVendedor + "TaxIdentification/TaxIdentificationNumber", Equis(30)},
      {"Clientes SET CP = 'L-2450'", kComprador + kDireccion + "PostCode", "00000"},
      {"Clientes SET CP = '350012'", kComprador + kDireccion + "PostCode", "35001"},
      {"Empresas SET CP = NULL", kVendedor + kDireccion + "PostCode", "00000"},
      {"Empresas SET Nombre_2 = ''", kVendedor + "LegalEntity/TradeName", "-"},
      {"Clientes SET Nombre = '" + Ennes(41) + "'", kComprador + "LegalEntity/CorporateName",
       Ennes(40)},
      {"Empresas SET Direccion = '" + Equis(81) + "'", kVendedor + kDireccion + "Address",
       Equis(80)},
      {"Clientes SET Provincia = '" + Equis(21) + "'", kComprador + kDireccion + "Province",
       Equis(20)},
      {"Facturas_Lineas SET Descripcion = '" + Equis(2600) + "'", kLinea + "ItemDescription",
       Equis(2500)},
      {"Facturas_Lineas SET Descripcion = 'a <b> & \"c\"'", kLinea + "ItemDescription",
       "a <b> & \"c\""},
      {"Facturas_Lineas SET Unidades = NULL", kLinea + "TotalCost", "0.000000"},
      {"Facturas_Lineas SET Precio = 2.3456, Unidades = 4.5", kLinea + "TotalCost", "10.560000"},
      {"Facturas_Lineas SET Precio = 0.015, Unidades = 1", kLinea + "GrossAmount", "0.020000"},
      {"Facturas_Lineas SET Precio = -2.5, Unidades = 0.0001", kLinea + "UnitPriceWithoutTax",
       "-2.500000"},
      {"Facturas SET Fecha = '31/12/2019'", kTasaLinea, "5.00"},
      {"Facturas SET Fecha = '31/12/2009'", kTasaLinea, "0.00"},
      {"Facturas SET Impuestos = -7", "//TotalTaxOutputs", "0.00"},
      {"Facturas SET Total = -1234567.895", "//InvoiceTotal", "-1234567.90"},
      {"Facturas_Lineas SET Precio = 165.21, Unidades = 1; UPDATE Igic_Tipos SET Imp_Valor = 9.5",
       kCuotaLinea, "15.69"},  // 15.69495
      {"Facturas_Lineas SET Precio = -165.21, Unidades = 1; UPDATE Igic_Tipos SET Imp_Valor = 9.5",
       kCuotaLinea, "-15.69"},
      {"Facturas_Lineas SET Precio = 0.02, Unidades = 1; UPDATE Igic_Tipos SET Imp_Valor = 24.9999",
       kCuotaLinea, "0.00"},  // 0.00499998
      {"Facturas_Lineas SET Precio = 0.02, Unidades = 1; UPDATE Igic_Tipos SET Imp_Valor = 25",
       kCuotaLinea, "0.01"},
      {"Facturas_Impuestos SET Codigo = 124", "//Invoice/TaxesOutputs/Tax/TaxAmount/TotalAmount",
       "0.00"}};
  for (const auto& [cambio, xpath, texto] : casos) {
    Con("UPDATE " + cambio, [&, &xpath = xpath, &texto = texto] {
      Construir(Factura());
      EXPECT_EQ(Texto(xpath), texto);
    });
  }
}

TEST_F(Cambios, LosNulosParanLoQueSeEscribe) {
  const struct {
    const char* cambio;
    bool para;
  } casos[] = {{"Empresas SET Nif = NULL", true},
               {"Empresas SET Nombre_2 = NULL", true},
               {"Empresas SET email = NULL", false},
               {"Empresas SET Telefono = NULL, Fax = NULL, Pais = NULL", false},
               {"Clientes SET Nombre_Comercial = NULL", true},
               {"Clientes SET Nombre_Comercial = NULL, Tipo = 1", false},
               {"Clientes SET Nif = NULL, Tipo = 1", true},
               {"Clientes SET Cod_Pais = NULL", true},
               {"Clientes SET EDI_Rol_Fiscal = NULL", true},
               {"Clientes SET EDI_Rol_Pagador = 'L99'", true},
               {"Clientes SET EDI_Rol_Comprador = 'L99'", false},
               {"EDI_Centros_Administrativos SET Descripcion = NULL", true},
               {"EDI_Centros_Administrativos SET Cod_Pais = NULL", true},
               {"Facturas SET ImporteB = NULL", true},
               {"Facturas SET Impuestos = NULL", true},
               {"Facturas SET Total = NULL", true},
               {"Facturas SET Dto1 = NULL, Dto2 = NULL", false},
               {"Facturas_Impuestos SET Base = NULL, Importe = NULL", false},
               {"Facturas_Lineas SET Descripcion = NULL, Impuesto = NULL", false},
               {"Clientes SET Tipo_Venta = NULL, Tipo_Impresion = NULL", false}};
  for (const auto& [cambio, para] : casos) {
    Con(std::string("UPDATE ") + cambio, [&, para = para] {
      std::int32_t numero = 0;
      try {
        Construir(Factura());
      } catch (const Error& error) {
        numero = error.Number();
      }
      EXPECT_EQ(numero, para ? kErrorInvalidNull : 0);
    });
  }
}

TEST_F(Cambios, DescuentosGenerales) {
  struct Descuento {
    std::string cual, tasa, importe;
  };
  const struct {
    std::string cambio;
    std::vector<Descuento> descuentos;
    std::string suma, base;
  } casos[] = {{"ImporteB = 200, Dto1 = 10, Dto2 = 5",
                {{"1", "10.0000", "20.000000"}, {"2", "4.5000", "9.000000"}},
                "29.00",
                "171.00"},
               {"ImporteB = -200, Dto2 = 5", {{"2", "5.0000", "-10.000000"}}, "-10.00", "-190.00"},
               {"ImporteB = 0, Dto1 = 10, Dto2 = 5", {{"1", "10.0000", "0.000000"}}, "", "0.00"},
               {"ImporteB = 0, Dto2 = 5", {}, "", "0.00"},
               {"ImporteB = 33.35, Dto1 = 33.3333, Dto2 = 7.77",
                {{"1", "33.3333", "11.120000"}, {"2", "5.1792", "1.730000"}},
                "12.85",
                "20.50"},
               {"ImporteB = 100, Dto1 = -5", {}, "-5.00", "105.00"}};
  for (const auto& caso : casos) {
    Lista esperado;
    for (const auto& [cual, tasa, importe] : caso.descuentos) {
      const std::string elemento = "GeneralDiscounts/Discount/Discount";
      esperado.insert(esperado.end(), {elemento + "Reason=Descuento " + cual,
                                       elemento + "Rate=" + tasa, elemento + "Amount=" + importe});
    }
    if (!caso.suma.empty()) {
      esperado.insert(esperado.end(),
                      {"TotalGeneralDiscounts=" + caso.suma, "TotalGeneralSurcharges=0.00"});
    }
    esperado.push_back("TotalGrossAmountBeforeTaxes=" + caso.base);
    Con("UPDATE Facturas SET " + caso.cambio, [&] {
      Construir(Factura());
      const Lista hojas = Hojas("//InvoiceTotals");
      ASSERT_GT(hojas.size(), 6U);
      EXPECT_EQ(Lista(hojas.begin() + 1, hojas.end() - 5), esperado);
    });
  }
}

TEST_F(Cambios, DescuentoDeLinea) {
  const struct {
    std::string cambio, importe, bruto;
  } casos[] = {{"Unidades = 1, Precio = 123.45, PDescuento = 10", "12.3400", "111.110000"},
               {"Unidades = 1, Precio = 123.55, PDescuento = 10", "12.3500", "111.200000"},
               {"Unidades = 1, Precio = 123.455, PDescuento = 10", "12.3400", "111.110000"},
               {"Unidades = 1, Precio = 123.456, PDescuento = 10", "12.3500", "111.110000"},
               {"Unidades = 3, Precio = 9.99, PDescuento = 33.3333", "9.9900", "19.980000"},
               {"Unidades = -1, Precio = 123.45, PDescuento = 10", "-12.3500", "-111.110000"},
               {"Unidades = 1, Precio = 10, PDescuento = 0", "", "10.000000"}};
  for (const auto& [cambio, importe, bruto] : casos) {
    Con("UPDATE Facturas_Lineas SET " + cambio, [&, &importe = importe, &bruto = bruto] {
      Construir(Factura());
      EXPECT_EQ(Texto(kLinea + "DiscountsAndRebates/Discount/DiscountAmount"), importe);
      EXPECT_EQ(Texto(kLinea + "GrossAmount"), bruto);
    });
  }
}

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

#if !defined(KVRAEDI_SANITIZE)  // the sanitizers keep freed memory
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
