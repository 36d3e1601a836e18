#include "facturae/consultas_documento.h"
#include "facturae/documento.h"
#include "facturae/elementos.h"
#include "frame/fila.h"
#include "frame/numero.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

constexpr std::size_t kAnchoDescripcion = 2500;

enum Columna : std::size_t {
  kDescripcion,
  kUnidades,
  kPrecio,
  kCosto,
  kPorcentaje,
  kDescuento,
  kArticulo,
  kImpuesto,
  kPromocion,
  kTipoVenta,
  kTipoImpresion
};

constexpr std::string_view kColumnas[] = {"Descripcion",  "Unidades",      "Precio",
                                          "CostoTotal",   "PDescuento",    "ImporteDescuento",
                                          "Cod_Articulo", "ValorImpuesto", "AplicaPromocion",
                                          "Tipo_Venta",   "Tipo_Impresion"};

/// Lines as they are written: the current row and what holds for all of them.
struct Lineas {
  const Fila& fila;
  bool gravada;

  Currency Valor(Columna columna) const { return fila.Get<Currency>(columna); }
};

/// The customer is billed by this one line.
bool EsResumen(const Lineas& lineas) {
  const auto vale = [&](Columna columna, std::int16_t valor) {
    return !lineas.fila.IsNull(columna) && lineas.fila.Get<std::int16_t>(columna) == valor;
  };
  return vale(kTipoVenta, 1) && vale(kTipoImpresion, 0);
}

/// In floating point, as the suite has always computed it: a value whose thousandths end in "5"
/// goes down.
Currency DescuentoDeLinea(Currency unidades, Currency precio, Currency porcentaje) {
  constexpr double kCien = 100, kMil = 1000, kMilesima = 0.001;
  double importe = unidades.ToDouble() * precio.ToDouble() * porcentaje.ToDouble() / kCien;
  if (TextoDe(Valor(importe * kMil)).ends_with('5')) importe -= kMilesima;
  return Currency::FromDouble(RedondearAlPar(importe, 2));
}

void EscribirDescuento(DocumentoXml& xml, NodoXml linea, const Lineas& lineas) {
  const Currency porcentaje = lineas.Valor(kPorcentaje);
  if (porcentaje <= Currency()) return;
  const Currency importe =
      DescuentoDeLinea(lineas.Valor(kUnidades), lineas.Valor(kPrecio), porcentaje);
  Anadir(xml, xml.Elemento(xml.Elemento(linea, "DiscountsAndRebates"), "Discount"),
         {{"DiscountReason", "Descuento Linea"},
          {"DiscountRate", Numero(porcentaje, kCuatroDecimales)},
          {"DiscountAmount", Numero(importe, kCuatroDecimales)}});
}

void EscribirImpuestos(DocumentoXml& xml, NodoXml linea, const Lineas& lineas, Currency bruto) {
  std::string tasa(kCero);
  std::string cuota(kCero);
  if (lineas.gravada) {
    const Currency porcentaje = lineas.Valor(kImpuesto);
    tasa = Numero(porcentaje, kDosDecimales);
    cuota = Numero(Porcentaje(bruto, porcentaje, 2), kDosDecimales);
  }
  AnadirImpuesto(xml, xml.Elemento(linea, "TaxesOutputs"), tasa, Numero(bruto, kDosDecimales),
                 cuota);
  if (lineas.gravada) return;
  Anadir(xml, xml.Elemento(linea, "SpecialTaxableEvent"),
         {{"SpecialTaxableEventCode", "01"},
          {"SpecialTaxableEventReason", "[03] - Comerciante Minorista Exento de IGIC"}});
}

void EscribirLinea(DocumentoXml& xml, NodoXml items, const Lineas& lineas) {
  const Fila& fila = lineas.fila;
  const bool resumen = EsResumen(lineas);
  const Currency precio = lineas.Valor(kPrecio);
  const Currency unidades = resumen ? Currency::FromInteger(1) : lineas.Valor(kUnidades);
  const Currency costo = Redondear(resumen ? precio : lineas.Valor(kCosto), 2);
  const Currency descuento = fila.Get<bool>(kPromocion) ? Currency() : lineas.Valor(kDescuento);
  const Currency bruto = Redondear(costo - descuento, 2);

  const NodoXml linea = xml.Elemento(items, "InvoiceLine");
  Anadir(xml, linea,
         {{"ItemDescription",
           PrimerosCaracteres(fila.Get<std::string_view>(kDescripcion), kAnchoDescripcion)},
          {"Quantity", Numero(unidades, kSeisDecimales)},
          {"UnitPriceWithoutTax", Numero(precio, kSeisDecimales)},
          {"TotalCost", Numero(costo, kSeisDecimales)}});
  EscribirDescuento(xml, linea, lineas);
  xml.ElementoTexto(linea, "GrossAmount", Numero(bruto, kSeisDecimales));
  EscribirImpuestos(xml, linea, lineas, bruto);
  xml.ElementoTexto(linea, "ArticleCode",
                    resumen ? "1" : std::to_string(fila.Get<std::int64_t>(kArticulo)));
}

}  // namespace

void CalculaDatosFactura(DocumentoXml& xml, NodoXml items, const ClaveDocumento& clave) {
  const Empresa& empresa = EmpresaActual();
  const auto filas = ConexionActual().Open(ConsultaLineas(clave, empresa));
  const Fila fila(*filas, kColumnas);
  const Lineas lineas{fila, empresa.AplicaIGIC()};
  for (std::int64_t numero = 1; !filas->Eof(); ++numero, filas->MoveNext()) {
    ConLugar([&] { return "línea " + std::to_string(numero); },
             [&] { EscribirLinea(xml, items, lineas); });
  }
}

}  // namespace kvraedi::facturae
