#include "facturae/consultas_documento.h"
#include "facturae/documento.h"
#include "facturae/elementos.h"
#include "frame/numero.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

constexpr std::size_t kAnchoDescripcion = 2500;

/// Places of the line query's fields, looked up once for all lines.
struct Columnas {
  explicit Columnas(const Recordset& filas)
      : descripcion(filas.Field("Descripcion")),
        unidades(filas.Field("Unidades")),
        precio(filas.Field("Precio")),
        costo(filas.Field("CostoTotal")),
        porcentaje(filas.Field("PDescuento")),
        descuento(filas.Field("ImporteDescuento")),
        articulo(filas.Field("Cod_Articulo")),
        impuesto(filas.Field("ValorImpuesto")),
        promocion(filas.Field("AplicaPromocion")),
        tipoVenta(filas.Field("Tipo_Venta")),
        tipoImpresion(filas.Field("Tipo_Impresion")) {}

  int descripcion, unidades, precio, costo, porcentaje, descuento, articulo, impuesto, promocion,
      tipoVenta, tipoImpresion;
};

/// Lines as they are written: the recordset on its current row and what holds for all of them.
struct Lineas {
  const Recordset& filas;
  const Columnas& columna;
  bool gravada;

  Currency Valor(int campo) const { return filas.Get<Currency>(campo); }
};

/// The customer is billed by this one line.
bool EsResumen(const Lineas& lineas) {
  const auto vale = [&](int campo, std::int16_t valor) {
    return !lineas.filas.IsNull(campo) && lineas.filas.Get<std::int16_t>(campo) == valor;
  };
  return vale(lineas.columna.tipoVenta, 1) && vale(lineas.columna.tipoImpresion, 0);
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
  const Currency porcentaje = lineas.Valor(lineas.columna.porcentaje);
  if (porcentaje <= Currency()) return;
  const Currency importe = DescuentoDeLinea(lineas.Valor(lineas.columna.unidades),
                                            lineas.Valor(lineas.columna.precio), porcentaje);
  Anadir(xml, xml.Elemento(xml.Elemento(linea, "DiscountsAndRebates"), "Discount"),
         {{"DiscountReason", "Descuento Linea"},
          {"DiscountRate", Numero(porcentaje, kCuatroDecimales)},
          {"DiscountAmount", Numero(importe, kCuatroDecimales)}});
}

void EscribirImpuestos(DocumentoXml& xml, NodoXml linea, const Lineas& lineas, Currency bruto) {
  std::string tasa(kCero);
  std::string cuota(kCero);
  if (lineas.gravada) {
    const Currency porcentaje = lineas.Valor(lineas.columna.impuesto);
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
  const auto& [filas, columna, gravada] = lineas;
  const bool resumen = EsResumen(lineas);
  const Currency precio = lineas.Valor(columna.precio);
  const Currency unidades = resumen ? Currency::FromInteger(1) : lineas.Valor(columna.unidades);
  const Currency costo = Redondear(resumen ? precio : lineas.Valor(columna.costo), 2);
  const Currency descuento =
      filas.Get<bool>(columna.promocion) ? Currency() : lineas.Valor(columna.descuento);
  const Currency bruto = Redondear(costo - descuento, 2);

  const NodoXml linea = xml.Elemento(items, "InvoiceLine");
  Anadir(xml, linea,
         {{"ItemDescription",
           PrimerosCaracteres(filas.Get<std::string_view>(columna.descripcion), kAnchoDescripcion)},
          {"Quantity", Numero(unidades, kSeisDecimales)},
          {"UnitPriceWithoutTax", Numero(precio, kSeisDecimales)},
          {"TotalCost", Numero(costo, kSeisDecimales)}});
  EscribirDescuento(xml, linea, lineas);
  xml.ElementoTexto(linea, "GrossAmount", Numero(bruto, kSeisDecimales));
  EscribirImpuestos(xml, linea, lineas, bruto);
  xml.ElementoTexto(linea, "ArticleCode",
                    resumen ? "1" : std::to_string(filas.Get<std::int64_t>(columna.articulo)));
}

}  // namespace

void CalculaDatosFactura(DocumentoXml& xml, NodoXml items, const ClaveDocumento& clave) {
  const Empresa& empresa = EmpresaActual();
  const auto filas = ConexionActual().Open(ConsultaLineas(clave, empresa));
  const Columnas columna(*filas);
  const Lineas lineas{*filas, columna, empresa.AplicaIGIC()};
  for (; !filas->Eof(); filas->MoveNext()) EscribirLinea(xml, items, lineas);
}

}  // namespace kvraedi::facturae
