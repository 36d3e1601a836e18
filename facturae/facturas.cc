#include "facturae/anexos.h"
#include "facturae/consultas_documento.h"
#include "facturae/documento.h"
#include "facturae/elementos.h"
#include "frame/fila.h"
#include "frame/numero.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

constexpr std::string_view kRectificativa = "OR";

/// The row of the invoice.
struct Factura {
  std::string codigo;
  std::string serie;
  FechaHora fecha;
  Currency total;
  Currency bruto;
  std::string impuestos;
  bool gravada;  // its company charges IGIC
};

/// The two general discounts: rates and amounts.
struct Descuentos {
  Currency tasa1, importe1, tasa2, importe2;
};

Factura LeerFactura(const Fila& fila) {
  Factura factura{.codigo = std::to_string(fila.Get<std::int32_t>("Codigo")),
                  .serie = std::to_string(fila.Get<std::int16_t>("Serie")),
                  .fecha = fila.Get<FechaHora>("Fecha"),
                  .total = fila.Get<Currency>("Total"),
                  .bruto = fila.Get<Currency>("ImporteB"),
                  .impuestos = std::string(kCero),
                  .gravada = EmpresaActual().AplicaIGIC()};
  if (factura.gravada) {
    const auto impuestos = fila.Get<Currency>("ImporteImpuesto");
    if (impuestos > Currency()) factura.impuestos = Numero(impuestos, kDosDecimales);
  }
  return factura;
}

Descuentos CalculaDescuentos(const Fila& fila, Currency bruto) {
  Descuentos descuentos;
  descuentos.tasa1 = fila.Get<Currency>("Descuento1");
  descuentos.importe1 = Redondear(Porcentaje(bruto, descuentos.tasa1, 4), 2);
  const auto porcentaje2 = fila.Get<Currency>("Descuento2");
  const Currency resto = bruto - descuentos.importe1;
  descuentos.importe2 = Redondear(Porcentaje(resto, porcentaje2, 4), 2);
  if (bruto != Currency()) descuentos.tasa2 = ReglaDeTres(resto, porcentaje2, bruto);
  return descuentos;
}

/// The revision of a corrective document that follows the one sent before; 0 when none was.
std::int16_t RevisionSiguiente(const ClaveDocumento& clave) {
  const auto envio =
      ConexionActual().Open(ConsultaRevision(clave, EmpresaActual().CodigoEmpresa()));
  if (envio->Eof()) return 0;
  const auto revision = Fila(*envio).Get<std::int16_t>("Revision");
  return ConLugar([] { return std::string("columna Revision"); },
                  [&] { return Estrechar<std::int16_t>(revision + 1); });
}

void EscribirRectificacion(DocumentoXml& xml, NodoXml cabecera, const Factura& factura) {
  const std::string anno = std::to_string(factura.fecha.year);
  const NodoXml rectificacion = xml.Elemento(cabecera, "Corrective");
  Anadir(xml, rectificacion,
         {{"InvoiceNumber", factura.codigo},
          {"InvoiceSeriesCode", factura.serie},
          {"ReasonCode", "10"},
          {"ReasonDescription", "Detalle Operación"}});
  Anadir(xml, xml.Elemento(rectificacion, "TaxPeriod"),
         {{"StartDate", anno + "-01-01"}, {"EndDate", anno + "-12-31"}});
  Anadir(xml, rectificacion,
         {{"CorrectionMethod", "01"}, {"CorrectionMethodDescription", "Rectificación íntegra"}});
}

void EscribirCabeceraFactura(DocumentoXml& xml, NodoXml nodo, const EstadoFacturaE& estado,
                             const Factura& factura, std::int16_t revision) {
  const bool rectificativa = estado.claseFactura == kRectificativa;
  const std::string sufijo = rectificativa ? "/R" + std::to_string(revision) : std::string();
  const NodoXml cabecera = xml.Elemento(nodo, "InvoiceHeader");
  Anadir(xml, cabecera,
         {{"InvoiceNumber", factura.codigo + sufijo},
          {"InvoiceSeriesCode", factura.serie},
          {"InvoiceDocumentType", estado.tipoDocumento},
          {"InvoiceClass", estado.claseFactura}});
  if (rectificativa) EscribirRectificacion(xml, cabecera, factura);
}

void EscribirDatosEmision(DocumentoXml& xml, NodoXml nodo, const Factura& factura) {
  const std::string fecha = FormatearFecha(factura.fecha, "yyyy-mm-dd");
  Anadir(xml, xml.Elemento(nodo, "InvoiceIssueData"),
         {{"IssueDate", fecha},
          {"OperationDate", fecha},
          {"InvoiceCurrencyCode", "EUR"},
          {"TaxCurrencyCode", "EUR"},
          {"LanguageName", "es"}});
}

/// The taxes of an invoice, when its company charges them; otherwise gives back the sum of their
/// bases.
Currency EscribirImpuestosFactura(DocumentoXml& xml, NodoXml impuestos, const ClaveDocumento& clave,
                                  bool gravada) {
  Currency exento;
  const auto filas =
      ConexionActual().Open(ConsultaImpuestos(clave, EmpresaActual().CodigoEmpresa()));
  const Fila fila(*filas);
  for (; !filas->Eof(); filas->MoveNext()) {
    const auto base = fila.Get<Currency>("Base");
    if (gravada) {
      AnadirImpuesto(xml, impuestos, Numero(fila.Get<Currency>("Imp_Valor"), kDosDecimales),
                     Numero(base, kDosDecimales),
                     Numero(fila.Get<Currency>("ImporteImpuesto"), kDosDecimales));
    } else {
      exento = exento + base;
    }
  }
  return exento;
}

void EscribirImpuestos(DocumentoXml& xml, NodoXml nodo, const ClaveDocumento& clave,
                       const Factura& factura) {
  const NodoXml impuestos = xml.Elemento(nodo, "TaxesOutputs");
  const Currency exento = clave.EsTicket()
                              ? factura.total
                              : EscribirImpuestosFactura(xml, impuestos, clave, factura.gravada);
  if (!factura.gravada) {
    AnadirImpuesto(xml, impuestos, kCero, Numero(exento, kDosDecimales), kCero);
  }
}

void EscribirDescuento(DocumentoXml& xml, NodoXml descuentos, std::string_view motivo,
                       Currency tasa, Currency importe) {
  if (tasa <= Currency()) return;
  Anadir(xml, xml.Elemento(descuentos, "Discount"),
         {{"DiscountReason", motivo},
          {"DiscountRate", Numero(tasa, kCuatroDecimales)},
          {"DiscountAmount", Numero(importe, kSeisDecimales)}});
}

void EscribirTotales(DocumentoXml& xml, NodoXml nodo, const Factura& factura,
                     const Descuentos& descuentos) {
  const NodoXml totales = xml.Elemento(nodo, "InvoiceTotals");
  xml.ElementoTexto(totales, "TotalGrossAmount", Numero(factura.bruto, kDosDecimales));
  if (descuentos.tasa1 > Currency() || descuentos.tasa2 > Currency()) {
    const NodoXml generales = xml.Elemento(totales, "GeneralDiscounts");
    EscribirDescuento(xml, generales, "Descuento 1", descuentos.tasa1, descuentos.importe1);
    EscribirDescuento(xml, generales, "Descuento 2", descuentos.tasa2, descuentos.importe2);
  }
  const Currency suma = Redondear(descuentos.importe1 + descuentos.importe2, 2);
  if (suma != Currency()) {
    Anadir(xml, totales,
           {{"TotalGeneralDiscounts", Numero(suma, kDosDecimales)},
            {"TotalGeneralSurcharges", kCero}});
  }
  const std::string total = Numero(factura.total, kDosDecimales);
  Anadir(xml, totales,
         {{"TotalGrossAmountBeforeTaxes", Numero(factura.bruto - suma, kDosDecimales)},
          {"TotalTaxOutputs", factura.impuestos},
          {"TotalTaxesWithheld", kCero},
          {"InvoiceTotal", total},
          {"TotalOutstandingAmount", total},
          {"TotalExecutableAmount", total}});
}

}  // namespace

void CalculaZonaInvoices(EstadoFacturaE& estado, DocumentoXml& xml, NodoXml raiz,
                         const ClaveDocumento& clave, std::int16_t revision) {
  estado.revisionUsada = 0;
  const NodoXml facturas = xml.Elemento(raiz, "Invoices");
  const auto filas = ConexionActual().Open(ConsultaFactura(clave, EmpresaActual().CodigoEmpresa()));
  if (filas->Eof()) return;
  const Factura factura = LeerFactura(Fila(*filas));
  const Descuentos descuentos = CalculaDescuentos(Fila(*filas), factura.bruto);
  filas->Close();
  if (estado.claseFactura == kRectificativa && revision == 0) {
    estado.revisionUsada = RevisionSiguiente(clave);
  }

  const NodoXml nodo = xml.Elemento(facturas, "Invoice");
  EscribirCabeceraFactura(xml, nodo, estado, factura,
                          revision > 0 ? revision : estado.revisionUsada);
  EscribirDatosEmision(xml, nodo, factura);
  EscribirImpuestos(xml, nodo, clave, factura);
  EscribirTotales(xml, nodo, factura, descuentos);
  CalculaDatosFactura(xml, xml.Elemento(nodo, "Items"), clave);
  EscribirAnexos(xml, nodo, clave);
}

}  // namespace kvraedi::facturae
