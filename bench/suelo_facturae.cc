#include "bench/suelo_facturae.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "bench/datos.h"
#include "facturae/consultas_documento.h"
#include "frame/sesion.h"

namespace kvraedi::bench {
namespace {

facturae::ClaveDocumento Clave(int codigo) {
  return {.ejercicio = kEjercicio, .serie = 1, .codigo = codigo};
}

/// The component's own statement in the library's own words.
std::string Propia(std::string sql) {
  const std::pair<std::string_view, std::string_view> cambios[] = {{"ISNULL(", "ifnull("},
                                                                   {"TOP 1 ", ""}};
  for (const auto& [de, a] : cambios) {
    for (std::size_t i = 0; (i = sql.find(de, i)) != std::string::npos; i += a.size()) {
      sql.replace(i, de.size(), a);
    }
  }
  return sql;
}

/// A number with its decimals, in a buffer that the next two do not touch.
std::string_view Cifras(double valor, int decimales) {
  static std::array<std::array<char, 32>, 4> textos;
  static std::size_t turno = 0;
  auto& texto = textos[turno++ % textos.size()];
  const auto fin = std::to_chars(texto.data(), texto.data() + texto.size(), valor,
                                 std::chars_format::fixed, decimales)
                       .ptr;
  return {texto.data(), static_cast<std::size_t>(fin - texto.data())};
}

double Centimos(double valor) { return std::round(valor * 100) / 100; }

}  // namespace

SueloFacturae::SueloFacturae(const BaseSuelo& base, int codigo)
    : codigo_(codigo),
      totales_(base, Propia(facturae::ConsultaTotales(Clave(codigo), 1))),
      partes_(base, Propia(facturae::ConsultaPartes(1, kCliente))),
      factura_(base, Propia(facturae::ConsultaFactura(Clave(codigo), 1))),
      impuestos_(base, Propia(facturae::ConsultaImpuestos(Clave(codigo), 1))),
      lineas_(base, Propia(facturae::ConsultaLineas(Clave(codigo), EmpresaActual()))),
      anexos_(base, Propia(facturae::ConsultaAnexos(Clave(codigo), 1))) {}

void SueloFacturae::Abrir(std::string_view nombre) {
  xml_.append(2 * nivel_++, ' ').append("<").append(nombre).append(">\n");
}

void SueloFacturae::Cerrar(std::string_view nombre) {
  xml_.append(2 * --nivel_, ' ').append("</").append(nombre).append(">\n");
}

void SueloFacturae::Hoja(std::string_view nombre, std::string_view texto) {
  xml_.append(2 * nivel_, ' ').append("<").append(nombre).append(">");
  for (const char c : texto) {
    if (c == '&') {
      xml_ += "&amp;";
    } else if (c == '<') {
      xml_ += "&lt;";
    } else if (c == '>') {
      xml_ += "&gt;";
    } else {
      xml_ += c;
    }
  }
  xml_.append("</").append(nombre).append(">\n");
}

void SueloFacturae::Importe(std::string_view nombre, std::string_view texto) {
  Abrir(nombre);
  Hoja("TotalAmount", texto);
  Cerrar(nombre);
}

void SueloFacturae::Direccion(std::string_view calle, std::string_view cp,
                              std::string_view localidad, std::string_view provincia,
                              std::string_view pais) {
  Abrir("AddressInSpain");
  Hoja("Address", calle);
  Hoja("PostCode", cp);
  Hoja("Town", localidad);
  Hoja("Province", provincia);
  Hoja("CountryCode", pais);
  Cerrar("AddressInSpain");
}

void SueloFacturae::Cabecera() {
  totales_.Paso();
  const std::string numero = std::to_string(codigo_);
  const std::string total(Cifras(totales_.Real(0), 2));
  Abrir("FileHeader");
  Hoja("SchemaVersion", "3.2.1");
  Hoja("Modality", "I");
  Hoja("InvoiceIssuerType", "EM");
  Abrir("Batch");
  Hoja("BatchIdentifier",
       "01" + std::to_string(kEjercicio) + std::string(9 - numero.size(), '0') + numero + "00001");
  Hoja("InvoicesCount", "1");
  Importe("TotalInvoicesAmount", total);
  Importe("TotalOutstandingAmount", total);
  Importe("TotalExecutableAmount", total);
  Hoja("InvoiceCurrencyCode", "EUR");
  Cerrar("Batch");
  Cerrar("FileHeader");
  totales_.Reiniciar();
}

void SueloFacturae::Partes() {
  partes_.Paso();
  const auto texto = [this](int columna) { return partes_.Texto(columna); };
  const auto identificacion = [this](std::string_view nif) {
    Abrir("TaxIdentification");
    Hoja("PersonTypeCode", "J");
    Hoja("ResidenceTypeCode", "R");
    Hoja("TaxIdentificationNumber", nif);
    Cerrar("TaxIdentification");
  };
  Abrir("Parties");
  Abrir("SellerParty");
  identificacion(texto(9));
  Abrir("LegalEntity");
  Hoja("CorporateName", texto(0));
  Hoja("TradeName", texto(1));
  Direccion(texto(2), texto(3), texto(4), texto(5), "ESP");
  Cerrar("LegalEntity");
  Cerrar("SellerParty");
  Abrir("BuyerParty");
  identificacion(texto(18));
  Abrir("AdministrativeCentres");
  for (int rol = 0; rol < 3; ++rol) {
    const int primera = 21 + 7 * rol;
    Abrir("AdministrativeCentre");
    Hoja("CentreCode", texto(primera));
    Hoja("RoleTypeCode", rol == 0 ? "01" : rol == 1 ? "02" : "03");
    Direccion(texto(primera + 1), texto(primera + 2), texto(primera + 3), texto(primera + 4),
              texto(primera + 5));
    Hoja("CentreDescription", texto(primera + 6));
    Cerrar("AdministrativeCentre");
  }
  Cerrar("AdministrativeCentres");
  Abrir("LegalEntity");
  Hoja("CorporateName", texto(11));
  Hoja("TradeName", texto(12));
  Direccion(texto(13), texto(14), texto(15), texto(16), texto(19));
  Cerrar("LegalEntity");
  Cerrar("BuyerParty");
  Cerrar("Parties");
  partes_.Reiniciar();
}

void SueloFacturae::Impuesto(double tasa, double base, double cuota) {
  Abrir("Tax");
  Hoja("TaxTypeCode", "03");
  Hoja("TaxRate", Cifras(tasa, 2));
  Importe("TaxableBase", Cifras(base, 2));
  Importe("TaxAmount", Cifras(cuota, 2));
  Cerrar("Tax");
}

void SueloFacturae::Linea() {
  const double unidades = lineas_.Real(2), precio = lineas_.Real(3), porcentaje = lineas_.Real(5);
  const double costo = Centimos(lineas_.Real(4));
  const double bruto = Centimos(costo - lineas_.Real(6));
  Abrir("InvoiceLine");
  Hoja("ItemDescription", lineas_.Texto(1));
  Hoja("Quantity", Cifras(unidades, 6));
  Hoja("UnitPriceWithoutTax", Cifras(precio, 6));
  Hoja("TotalCost", Cifras(costo, 6));
  if (porcentaje > 0) {
    Abrir("DiscountsAndRebates");
    Abrir("Discount");
    Hoja("DiscountReason", "Descuento Linea");
    Hoja("DiscountRate", Cifras(porcentaje, 4));
    Hoja("DiscountAmount", Cifras(Centimos(unidades * precio * porcentaje / 100), 4));
    Cerrar("Discount");
    Cerrar("DiscountsAndRebates");
  }
  Hoja("GrossAmount", Cifras(bruto, 6));
  Abrir("TaxesOutputs");
  Impuesto(lineas_.Real(8), bruto, Centimos(bruto * lineas_.Real(8) / 100));
  Cerrar("TaxesOutputs");
  Hoja("ArticleCode", lineas_.Texto(7));
  Cerrar("InvoiceLine");
}

void SueloFacturae::Factura() {
  factura_.Paso();
  const std::string_view fecha = factura_.Texto(2).substr(0, 10);
  const std::string bruto(Cifras(factura_.Real(4), 2)), total(Cifras(factura_.Real(3), 2));
  Abrir("InvoiceHeader");
  Hoja("InvoiceNumber", factura_.Texto(0));
  Hoja("InvoiceSeriesCode", factura_.Texto(1));
  Hoja("InvoiceDocumentType", "FC");
  Hoja("InvoiceClass", "OO");
  Cerrar("InvoiceHeader");
  Abrir("InvoiceIssueData");
  Hoja("IssueDate", fecha);
  Hoja("OperationDate", fecha);
  Hoja("InvoiceCurrencyCode", "EUR");
  Hoja("TaxCurrencyCode", "EUR");
  Hoja("LanguageName", "es");
  Cerrar("InvoiceIssueData");
  Abrir("TaxesOutputs");
  while (impuestos_.Paso()) Impuesto(impuestos_.Real(2), impuestos_.Real(1), impuestos_.Real(0));
  Cerrar("TaxesOutputs");
  Abrir("InvoiceTotals");
  Hoja("TotalGrossAmount", bruto);
  Hoja("TotalGrossAmountBeforeTaxes", bruto);
  Hoja("TotalTaxOutputs", Cifras(factura_.Real(5), 2));
  Hoja("TotalTaxesWithheld", "0.00");
  Hoja("InvoiceTotal", total);
  Hoja("TotalOutstandingAmount", total);
  Hoja("TotalExecutableAmount", total);
  Cerrar("InvoiceTotals");
  factura_.Reiniciar();
}

void SueloFacturae::Escribir(const std::filesystem::path& fichero) {
  xml_ =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<fe:Facturae"
      " xmlns:fe=\"http://www.facturae.es/Facturae/2014/v3.2.1/Facturae\""
      " xmlns:ds=\"http://www.w3.org/2000/09/xmldsig#\">\n";
  nivel_ = 1;
  Cabecera();
  Partes();
  Abrir("Invoices");
  Abrir("Invoice");
  Factura();
  Abrir("Items");
  while (lineas_.Paso()) Linea();
  Cerrar("Items");
  while (anexos_.Paso()) anexos_.CopiarFila(xml_);
  Cerrar("Invoice");
  Cerrar("Invoices");
  xml_ += "</fe:Facturae>\n";
  const int abierto = ::open(fichero.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (abierto < 0 ||
      ::write(abierto, xml_.data(), xml_.size()) != static_cast<ssize_t>(xml_.size()) ||
      ::close(abierto) != 0) {
    throw std::runtime_error("file operation of the floor failed");
  }
}

}  // namespace kvraedi::bench
