#include <fstream>

#include "frame/base64.h"
#include "tests/facturae/escenario_facturae.h"

namespace kvraedi {
namespace {

class Documento : public EscenarioFacturae {};

TEST_F(Documento, FacturaOrdinariaEntera) {
  base->Execute("UPDATE Clientes SET EDI_Rol_Comprador = 'L04' WHERE Codigo = 200");
  Construir(Factura());
  const pugi::xml_node raiz = documento.document_element();
  EXPECT_STREQ(raiz.name(), "fe:Facturae");
  EXPECT_STREQ(raiz.first_attribute().name(), "xmlns:fe");
  EXPECT_STREQ(raiz.first_attribute().value(),
               "http://www.facturae.es/Facturae/2014/v3.2.1/Facturae");
  EXPECT_STREQ(raiz.last_attribute().name(), "xmlns:ds");
  EXPECT_STREQ(raiz.last_attribute().value(), "http://www.w3.org/2000/09/xmldsig#");
  EXPECT_EQ(Zona("FileHeader"),
            "SchemaVersion=3.2.1 Modality=I InvoiceIssuerType=EM Batch{"
            "BatchIdentifier=01202400000012300003 InvoicesCount=1"
            " TotalInvoicesAmount{TotalAmount=107.00} TotalOutstandingAmount{TotalAmount=107.00}"
            " TotalExecutableAmount{TotalAmount=107.00} InvoiceCurrencyCode=EUR}");
  EXPECT_EQ(Zona("Parties/SellerParty"),
            "TaxIdentification{PersonTypeCode=J ResidenceTypeCode=R"
            " TaxIdentificationNumber=B35000000} LegalEntity{"
            "CorporateName=Ñandú y Cía, S.L. TradeName=Mayorista AddressInSpain{"
            "Address=C/ Mayor, 1 PostCode=35001 Town=Las Palmas Province=Las Palmas de GC"
            " CountryCode=ESP}}");
  const auto centro = [](const std::string& n, const std::string& cp, const char* descripcion) {
    return "AdministrativeCentre{CentreCode=L0" + n + " RoleTypeCode=0" + n +
           " AddressInSpain{Address=Plaza " + n + " PostCode=" + cp +
           " Town=Arrecife Province=Las Palmas CountryCode=ESP} CentreDescription=" + descripcion +
           "}";
  };
  EXPECT_EQ(Zona("Parties/BuyerParty"),
            "TaxIdentification{PersonTypeCode=J ResidenceTypeCode=R"
            " TaxIdentificationNumber=P3530303A} AdministrativeCentres{" +
                centro("1", "35500", "Oficina contable") + " " +
                centro("2", "35501", "Órgano gestor") + " " + centro("3", "35502", "") + " " +
                centro("4", "35503", "Órgano proponente") +
                "} LegalEntity{CorporateName=Ayuntamiento de Puerto Azul TradeName=-"
                " AddressInSpain{Address=Pza. Mayor, 1 PostCode=35500 Town=Arrecife"
                " Province=Las Palmas CountryCode=ESP}}");
  EXPECT_EQ(Zona("Invoices/Invoice"),
            "InvoiceHeader{InvoiceNumber=123 InvoiceSeriesCode=3 InvoiceDocumentType=FC"
            " InvoiceClass=OO} InvoiceIssueData{IssueDate=2024-02-20 OperationDate=2024-02-20"
            " InvoiceCurrencyCode=EUR TaxCurrencyCode=EUR LanguageName=es}"
            " TaxesOutputs{Tax{TaxTypeCode=03 TaxRate=7.00 TaxableBase{TotalAmount=100.00}"
            " TaxAmount{TotalAmount=7.00}}} InvoiceTotals{TotalGrossAmount=100.00"
            " TotalGrossAmountBeforeTaxes=100.00 TotalTaxOutputs=7.00 TotalTaxesWithheld=0.00"
            " InvoiceTotal=107.00 TotalOutstandingAmount=107.00 TotalExecutableAmount=107.00}"
            " Items{InvoiceLine{ItemDescription=Queso Quantity=4.000000"
            " UnitPriceWithoutTax=25.000000 TotalCost=100.000000 GrossAmount=100.000000"
            " TaxesOutputs{Tax{TaxTypeCode=03 TaxRate=7.00 TaxableBase{TotalAmount=100.00}"
            " TaxAmount{TotalAmount=7.00}}} ArticleCode=501}}");
  EXPECT_EQ(estado.emailEmisor, "facturas@nandu.es");
  EXPECT_EQ(estado.revisionUsada, 0);
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
  const std::pair<std::string, std::string_view> casos[] = {
      {"Empresas SET Nif", "Emp_Nif"},
      {"Empresas SET Nombre_2", "Emp_Nombre2"},
      {"Clientes SET Nombre_Comercial", "Nombre_Comercial"},
      {"Clientes SET Tipo = 1, Nif", "CompNif"},
      {"Clientes SET Cod_Pais", "CompPais3"},
      {"Clientes SET EDI_Rol_Fiscal", "CodigoFiscal"},
      {"Clientes SET EDI_Rol_Pagador", "CodigoPagador"},
      {"EDI_Centros_Administrativos SET Descripcion", "DescripcionFiscal"},
      {"EDI_Centros_Administrativos SET Cod_Pais", "PaisFiscal"},
      {"Facturas SET ImporteB", "ImporteB"},
      {"Facturas SET Impuestos", "ImporteImpuesto"},
      {"Facturas SET Total", "total"}};
  for (const auto& [cambio, columna] : casos) {
    Con("UPDATE " + cambio + " = NULL", [&, columna = columna] {
      EXPECT_EQ(ErrorDe([&] { Construir(Factura()); }),
                "columna " + std::string(columna) + ": Uso no válido de Null");
    });
  }
  for (const std::string cambio :
       {"Empresas SET Telefono = NULL, Fax = NULL, Pais = NULL, email",
        "Clientes SET Tipo = 1, Nombre_Comercial", "Clientes SET EDI_Rol_Comprador",
        "Facturas SET Dto1 = NULL, Dto2", "Facturas_Impuestos SET Base = NULL, Importe",
        "Facturas_Lineas SET Descripcion = NULL, Impuesto",
        "Clientes SET Tipo_Venta = NULL, Tipo_Impresion"}) {
    Con("UPDATE " + cambio + " = NULL", [&] { Construir(Factura()); });
  }
}

TEST_F(Cambios, DescuentosGenerales) {
  const auto descuento = [](const std::string& cual, const char* tasa, const char* importe) {
    return "Discount{DiscountReason=Descuento " + cual + " DiscountRate=" + tasa +
           " DiscountAmount=" + importe + "}";
  };
  const auto suma = [](const std::string& importe) {
    return " TotalGeneralDiscounts=" + importe + " TotalGeneralSurcharges=0.00";
  };
  const struct {
    std::string cambio, descuentos, suma, base;
  } casos[] = {
      {"ImporteB = 200, Dto1 = 10, Dto2 = 5",
       descuento("1", "10.0000", "20.000000") + " " + descuento("2", "4.5000", "9.000000"),
       suma("29.00"), "171.00"},
      {"ImporteB = -200, Dto2 = 5", descuento("2", "5.0000", "-10.000000"), suma("-10.00"),
       "-190.00"},
      {"ImporteB = 0, Dto1 = 10, Dto2 = 5", descuento("1", "10.0000", "0.000000"), "", "0.00"},
      {"ImporteB = 0, Dto2 = 5", "", "", "0.00"},
      {"ImporteB = 33.35, Dto1 = 33.3333, Dto2 = 7.77",
       descuento("1", "33.3333", "11.120000") + " " + descuento("2", "5.1792", "1.730000"),
       suma("12.85"), "20.50"},
      // money first: 15.69495 is 15.6950, then 15.70
      {"ImporteB = 165.21, Dto1 = 9.5", descuento("1", "9.5000", "15.700000"), suma("15.70"),
       "149.51"},
      {"ImporteB = 100, Dto1 = -5", "", suma("-5.00"), "105.00"}};
  for (const auto& caso : casos) {
    const std::string generales =
        caso.descuentos.empty() ? "" : " GeneralDiscounts{" + caso.descuentos + "}";
    Con("UPDATE Facturas SET " + caso.cambio, [&] {
      Construir(Factura());
      const std::string totales = Zona("//InvoiceTotals");
      const std::size_t inicio = totales.find(' ');
      EXPECT_EQ(totales.substr(inicio, totales.find(" TotalTaxOutputs") - inicio),
                generales + caso.suma + " TotalGrossAmountBeforeTaxes=" + caso.base);
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
  EXPECT_TRUE(Zona("//InvoiceLine")
                  .starts_with("ItemDescription=Queso Quantity=1.000000"
                               " UnitPriceWithoutTax=25.555000 TotalCost=25.560000 "));
  EXPECT_EQ(Texto("//InvoiceLine/ArticleCode"), "1");

  base->Execute("UPDATE Clientes SET Tipo_Impresion = 1 WHERE Codigo = 200");
  Construir(Factura());
  EXPECT_EQ(Cuantos("//InvoiceLine"), 0U) << "a line of text is not billed";
}

TEST_F(Documento, EmpresaExenta) {
  empresa->igic = false;
  Insertar("Facturas_Impuestos", false, "Tipo, Base, Importe", "2, 50.5, 1.5");
  base->Execute("UPDATE Facturas SET Impuestos = NULL");
  Construir(Factura());
  const auto impuesto = [](const std::string& importe) {
    return "Tax{TaxTypeCode=03 TaxRate=0.00 TaxableBase{TotalAmount=" + importe +
           "} TaxAmount{TotalAmount=0.00}}";
  };
  EXPECT_EQ(Zona("//Invoice/TaxesOutputs"), impuesto("150.50"));
  EXPECT_EQ(Texto("//TotalTaxOutputs"), "0.00");
  const std::string linea = Zona("//InvoiceLine");
  EXPECT_EQ(linea.substr(linea.find("TaxesOutputs")),
            "TaxesOutputs{" + impuesto("100.00") +
                "} SpecialTaxableEvent{SpecialTaxableEventCode=01"
                " SpecialTaxableEventReason=[03] - Comerciante Minorista Exento de IGIC}"
                " ArticleCode=501");
  Construir(Ticket());
  EXPECT_EQ(Zona("//Invoice/TaxesOutputs"), impuesto("16.05"));
}

TEST_F(Documento, TicketFacturado) {
  base->Run(R"(
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 1, 501, 2, 5.35, 10, 10.7, 9.63, 1, 0);
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 2, 999, 3, 2.14, 0, 6.42, 4.28, 2, 1);
INSERT INTO TPV_Tickets_Lineas VALUES (1, 2, 3, '05/03/2024', 77, 3, -1, 0, 0, 0, 0, 0, 0, 0);
)");
  Construir(Ticket());
  EXPECT_TRUE(Zona("//InvoiceHeader").starts_with("InvoiceNumber=900 InvoiceSeriesCode=52 "));
  EXPECT_EQ(Texto("//IssueDate"), "2024-03-07");
  EXPECT_EQ(Cuantos("//Invoice/TaxesOutputs/Tax"), 0U) << "a taxed ticket has none";
  EXPECT_TRUE(Zona("//InvoiceTotals")
                  .starts_with("TotalGrossAmount=16.05 TotalGrossAmountBeforeTaxes=16.05"
                               " TotalTaxOutputs=0.00 "));
  EXPECT_EQ(Zona("//Items"),
            "InvoiceLine{ItemDescription=Queso Quantity=2.000000 UnitPriceWithoutTax=5.350000"
            " TotalCost=10.700000 DiscountsAndRebates{Discount{DiscountReason=Descuento Linea"
            " DiscountRate=10.0000 DiscountAmount=1.0700}} GrossAmount=9.630000"
            " TaxesOutputs{Tax{TaxTypeCode=03 TaxRate=7.00 TaxableBase{TotalAmount=9.63}"
            " TaxAmount{TotalAmount=0.67}}} ArticleCode=501}"
            // an article that is not on file; of an offer nothing is taken
            " InvoiceLine{ItemDescription= Quantity=3.000000 UnitPriceWithoutTax=2.140000"
            " TotalCost=6.420000 GrossAmount=6.420000"
            " TaxesOutputs{Tax{TaxTypeCode=03 TaxRate=3.00 TaxableBase{TotalAmount=6.42}"
            " TaxAmount{TotalAmount=0.19}}} ArticleCode=999}");
}

TEST_F(Documento, IdentificadoresDeLote) {
  base->Execute("UPDATE Facturas SET TipoDoc = 1, Serie = 5");
  const std::pair<facturae::ClaveDocumento, std::string> casos[] = {
      {{.ejercicio = 2024, .serie = 5, .codigo = 123, .tipoDoc = 1}, "01202400000012301005"},
      {Ticket(), "0100203050324000000077"},
      {Factura(124), ""}};
  for (const auto& [clave, identificador] : casos) {
    facturae::CalculaTotalesFacturas(estado, clave);
    EXPECT_EQ(estado.identificadorLote, identificador);
    EXPECT_EQ(estado.numFacturas, identificador.empty() ? 0 : 1);
  }
}

TEST_F(Documento, SinFacturaNiClienteOSinPersonaJuridica) {
  base->Execute("UPDATE Clientes SET Tipo = 1");
  estado.tipoPersona = "F";
  Construir(Factura());
  EXPECT_EQ(Texto("Parties/BuyerParty/TaxIdentification/PersonTypeCode"), "F");
  EXPECT_EQ(Cuantos("//LegalEntity"), 0U);
  EXPECT_EQ(Cuantos("//AdministrativeCentre"), 3U);

  base->Execute("DELETE FROM Clientes");
  Construir(Factura(124));
  EXPECT_EQ(Zona("Parties"), "SellerParty{TaxIdentification=} BuyerParty=");
  EXPECT_EQ(Zona("."),
            "FileHeader{" + Zona("FileHeader") + "} Parties{" + Zona("Parties") + "} Invoices=");
  EXPECT_TRUE(Zona("//Batch").starts_with("BatchIdentifier= InvoicesCount= "));
}

TEST_F(Documento, Rectificativa) {
  const struct {
    std::string envio;  ///< platform, message and revision of the earlier sending; "" is none
    std::int16_t revision;
    std::string numero;
    std::int16_t usada;
    bool ticket = false;
  } casos[] = {{"", 0, "123/R0", 0},        {"3, 1, 2", 0, "123/R3", 3},
               {"3, 1, 2", 7, "123/R7", 0}, {"2, 1, 2", 0, "123/R0", 0},
               {"3, 2, 2", 0, "123/R0", 0}, {"3, 1, 0", 0, "900/R1", 1, true}};
  estado.claseFactura = "OR";
  for (const auto& [envio, revision, numero, usada, ticket] : casos) {
    base->Execute("DELETE FROM EDI_Envio_Facturas");
    if (!envio.empty()) {
      Insertar("EDI_Envio_Facturas", ticket, "Cod_EDIPlat, Cod_EDITipoMsg, Revision", envio);
    }
    Construir(ticket ? Ticket() : Factura(), revision);
    EXPECT_EQ(Texto("//InvoiceHeader/InvoiceNumber"), numero) << envio;
    EXPECT_EQ(estado.revisionUsada, usada) << envio;
  }
  EXPECT_EQ(Zona("//Corrective"),
            "InvoiceNumber=900 InvoiceSeriesCode=52 ReasonCode=10"
            " ReasonDescription=Detalle Operación TaxPeriod{StartDate=2024-01-01"
            " EndDate=2024-12-31} CorrectionMethod=01"
            " CorrectionMethodDescription=Rectificación íntegra");
  base->Execute("UPDATE EDI_Envio_Facturas SET Revision = 32767");
  EXPECT_THROW(Construir(Ticket()), Error) << "the next revision has no room";
}

class Anexos : public EscenarioFacturae {};

TEST_F(Anexos, UnElementoPorFichero) {
  Anexar("informe.final.pdf", "255044462D312E34");
  Anexar("L''hort", "FFFF");
  Anexar("vacio.pdf", "");
  Anexar("..\\..\\fuera.pdf", "25", true);
  Construir(Factura());
  EXPECT_EQ(Zona("//RelatedDocuments"),
            "Attachment{AttachmentFormat=pdf AttachmentEncoding=BASE64"
            " AttachmentDescription=Descripción AttachmentData=JVBERi0xLjQ=}"
            " Attachment{AttachmentFormat=L'hort AttachmentEncoding=BASE64"
            " AttachmentDescription=Descripción AttachmentData=//8=}");
  EXPECT_EQ(std::filesystem::file_size(anexos / "informe.final.pdf"), 8U);
  EXPECT_FALSE(std::filesystem::exists(anexos / "vacio.pdf"));

  Construir(Ticket());
  EXPECT_EQ(Texto("//AttachmentData"), "JQ==");
  EXPECT_TRUE(std::filesystem::exists(anexos / "fuera.pdf")) << "never outside its folder";
  Anexar("x/..", "25", true);
  EXPECT_THROW(Construir(Ticket()), Error);
  base->Execute("DELETE FROM EDI_Anexos");
  Construir(Ticket());
  EXPECT_EQ(Cuantos("//AdditionalData"), 0U);
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
  Anexar("plano.pdf", "25");
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

}  // namespace
}  // namespace kvraedi
