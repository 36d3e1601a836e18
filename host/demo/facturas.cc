#include "host/demo/facturas.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "host/demo/documentos.h"
#include "host/demo/importes.h"

namespace kvraedi::demo {
namespace {

constexpr std::int64_t kUno = Currency::kScale;
constexpr std::int64_t kSegundosDia = 86400;
constexpr std::int32_t kLineaDeTexto = -1;  // article code of a line that is text only
constexpr std::int16_t kFacturaResumen = 2;
constexpr std::int16_t kAbono = 1;
constexpr std::int16_t kRectificativa = 2;  // of either sign
constexpr std::int64_t kVigesimo = 20;
constexpr auto kFormasDePago = std::to_array<std::int16_t>({1, 5, 6, 7, 10, 11, 20, 30});

Currency Porcentaje(std::int16_t tipo) {
  return Currency::FromUnits(kImpuestos[static_cast<std::size_t>(tipo)].porcentaje);
}

struct Linea {
  std::int32_t articulo = kLineaDeTexto;
  std::string_view descripcion;
  Currency peso;
  Currency bultos;
  ImportesLinea importes;
};

struct Factura {
  const EmpresaDemo* empresa = nullptr;
  const Cliente* cliente = nullptr;
  Clave clave;
  FechaHora fecha;
  FechaHora hora;
  bool negativa = false;
  std::vector<Linea> lineas;
  std::array<DescuentoGeneral, 2> descuentos;
  Currency portes;
  Totales totales;
};

// What is special about an invoice follows from its number in the run, so that every kind is there
// from a few hundred invoices on; names, quantities and prices are left to chance.
class Generador {
 public:
  Generador(Connection& conexion, Azar& azar, const std::vector<Cliente>& clientes)
      : azar_(azar),
        envios_(conexion, azar),
        facturas_(conexion, "Facturas",
                  "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Fecha, Hora, Cliente,"
                  " Almacen, TipoFactura, FormaPago, ImporteB, Dto1, TDto1, Dto2, TDto2,"
                  " Importe_Portes, Impuestos, Total, Observ, Ent_Nombre, Ent_Nif, Ent_Direccion,"
                  " Ent_Cp, Ent_Localidad, Ent_Provincia, Ent_Pais, Ent_Contacto, Ent_Telefono,"
                  " ExcluirEDI"),
        lineas_(conexion, "Facturas_Lineas",
                "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Num_Linea, Cod_Articulo,"
                " Descripcion, Peso, Bultos, Unidades, PrecioG, Precio, PDescuento, Descuento,"
                " Impuesto"),
        impuestos_(conexion, "Facturas_Impuestos",
                   "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo, Base, Importe"),
        cobros_(conexion, "Facturas_PrevCobros",
                "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Apunte, Fecha_Vto, Importe"),
        albaranes_(conexion, "Albaranes_F",
                   "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Factura_Codigo, Fecha, Ent_Nombre,"
                   " Ent_Nif, Ent_Direccion, Ent_Cp, Ent_Localidad, Ent_Provincia, Ent_Pais"),
        albaranLineas_(conexion, "Albaranes_F_Lineas",
                       "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Num_Linea, Cod_Articulo,"
                       " Descripcion, Unidades, Precio, PvpBase"),
        albaranImpuestos_(conexion, "Albaranes_F_Impuestos",
                          "Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Tipo, Base, Importe") {
    for (std::size_t i = 0; i < kEmpresas.size(); ++i) repartos_.emplace_back(clientes, azar);
  }

  void Crear(std::int32_t vez, std::int32_t n) {
    Factura f = Cabecera(vez, n);
    Lineas(f, vez);
    Descuentos(f, vez);
    std::vector<ImportesLinea> importes;
    for (const Linea& linea : f.lineas) {
      if (linea.articulo != kLineaDeTexto) importes.push_back(linea.importes);
    }
    f.totales = Totalizar(importes, f.descuentos, f.portes, Porcentaje);
    Guardar(f, vez);
    envios_.Factura(*f.cliente, f.clave, f.hora, vez);
  }

 private:
  Factura Cabecera(std::int32_t vez, std::int32_t n);
  void Lineas(Factura& f, std::int32_t vez);
  Linea Articulo(const Factura& f, std::int32_t vez);
  void Descuentos(Factura& f, std::int32_t vez);
  void Guardar(const Factura& f, std::int32_t vez);
  void GuardarCobros(const Factura& f);
  void GuardarAlbaranes(const Factura& f);

  Azar& azar_;
  Envios envios_;
  Tabla facturas_;
  Tabla lineas_;
  Tabla impuestos_;
  Tabla cobros_;
  Tabla albaranes_;
  Tabla albaranLineas_;
  Tabla albaranImpuestos_;
  std::int32_t ultimoAlbaran_ = 0;
  std::vector<Reparto> repartos_;  // one for each company
  std::map<std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int16_t>, std::int32_t>
      ultimoCodigo_;
};

Factura Generador::Cabecera(std::int32_t vez, std::int32_t n) {
  Factura f;
  const std::size_t e = vez % 5 == 4 ? 1 : 0;
  f.empresa = &kEmpresas[e];
  f.cliente = &repartos_[e].Siguiente();
  f.fecha = FechaDocumento(vez, n);
  f.hora = HoraComercial(f.fecha, azar_);
  const bool abono = vez % 11 == 7;
  const bool rectificativa = vez % 53 == 20 || vez % 53 == 40;
  f.negativa = abono || vez % 53 == 40;
  f.clave.empresa = f.empresa->codigo;
  f.clave.ejercicio = f.fecha.year;
  f.clave.serie = static_cast<std::int16_t>(azar_.Entre(1, f.empresa->almacenes));
  if (rectificativa) f.clave.tipoDoc = kRectificativa;
  if (abono) f.clave.tipoDoc = kAbono;
  f.clave.codigo =
      ++ultimoCodigo_[{f.clave.empresa, f.clave.ejercicio, f.clave.serie, f.clave.tipoDoc}];
  return f;
}

Linea Generador::Articulo(const Factura& f, std::int32_t vez) {
  const ArticuloDemo& a = azar_.Elegir(kArticulos);
  Linea linea{a.codigo, a.descripcion, Currency::FromUnits(a.peso), {}, {}};
  const std::int64_t unidades =
      a.aGranel ? azar_.Entre(250, 40000) * 10 : azar_.Entre(1, 24) * kUno;
  linea.bultos = Currency::FromUnits(Dividir(unidades, 6 * kUno / 2) * kUno / 2);
  linea.importes.unidades = Currency::FromUnits(f.negativa ? -unidades : unidades);
  linea.importes.precio = Currency::FromUnits(a.precio + azar_.Entre(-9, 9) * a.precio / 100);
  const bool rebajado = azar_.UnaDe(4);
  linea.importes.precioG =
      Currency::FromUnits(linea.importes.precio.Units() * (rebajado ? 110 : 100) / 100);
  if (vez % 3 == 1) linea.importes.pDescuento = Currency::FromUnits(azar_.Entre(0, 2500) * 100);
  const bool nacional = f.cliente->regimen == Regimen::kNacional;
  linea.importes.impuesto = !f.empresa->aplicaIgic ? std::int16_t{0}
                            : nacional             ? a.impuesto
                                                   : std::int16_t{1};
  return linea;
}

void Generador::Lineas(Factura& f, std::int32_t vez) {
  Linea texto;
  if (vez % 4 == 1) {
    texto.descripcion = azar_.Elegir(kTextosDeLinea);
    f.lineas.push_back(texto);
  }
  const std::int64_t articulos = vez % 37 == 9 ? 12 : azar_.Entre(1, 5);
  for (std::int64_t i = 0; i < articulos; ++i) f.lineas.push_back(Articulo(f, vez));
  if (vez % 5 == 2) {
    texto.descripcion = azar_.Elegir(kTextosDeLinea);
    f.lineas.push_back(texto);
  }
}

void Generador::Descuentos(Factura& f, std::int32_t vez) {
  Currency neto;
  for (const Linea& linea : f.lineas) neto = neto + linea.importes.Neto();
  const Currency tres = Currency::FromUnits(3 * kUno);
  const Currency porcentaje = Currency::FromUnits(azar_.Entre(1, 30) * kUno / 2);
  const Currency vigesimo = Currency::FromUnits(Dividir(neto.Units(), kVigesimo * 100) * 100);
  if (vez % 7 == 2) f.descuentos[0] = {porcentaje, 0};
  if (vez % 7 == 5) f.descuentos[0] = {vigesimo, 1};
  if (vez % 10 == 2) f.descuentos[1] = {tres, 0};
  if (vez % 10 == 5) f.descuentos[1] = {vigesimo, 1};
  const std::int64_t portes = azar_.Entre(300, 1500);
  if (vez % 6 == 0 && !f.negativa) f.portes = Currency::FromUnits(portes * kUno / 100);
}

void Generador::Guardar(const Factura& f, std::int32_t vez) {
  const Cliente& c = *f.cliente;
  const bool contado = f.negativa || vez % 4 == 3;
  const std::int16_t forma = azar_.Elegir(kFormasDePago);
  const std::string_view observaciones = azar_.Elegir(kObservaciones);
  const std::string_view contacto = azar_.Elegir(kContactos);
  const bool resumen = c.plataforma == 2 && c.mensaje == 2;
  const auto opcional = [](bool presente, std::string_view texto) {
    return presente ? std::optional(texto) : std::nullopt;
  };
  facturas_.Insertar(f.clave, f.fecha, f.hora, c.codigo, f.clave.serie,
                     resumen ? kFacturaResumen : std::int16_t{0}, contado ? std::int16_t{0} : forma,
                     f.totales.importeB, f.descuentos[0].valor, f.descuentos[0].tipo,
                     f.descuentos[1].valor, f.descuentos[1].tipo, f.portes, f.totales.impuestos,
                     f.totales.total, opcional(vez % 3 != 0, observaciones),
                     c.nombre + (vez % 8 == 1 ? " - Tienda nº " + std::to_string(vez % 90) : ""),
                     c.nif, c.lugar->direccion, c.lugar->cp, c.lugar->localidad, c.lugar->provincia,
                     c.pais, opcional(vez % 5 == 0, contacto),
                     opcional(vez % 2 == 0, "928 99 88 77"), vez % 17 == 3);
  std::int32_t numero = 0;
  for (const Linea& l : f.lineas) {
    lineas_.Insertar(f.clave, ++numero, l.articulo, l.descripcion, l.peso, l.bultos,
                     l.importes.unidades, l.importes.precioG, l.importes.precio,
                     l.importes.pDescuento, l.importes.Descuento(), l.importes.impuesto);
  }
  for (const Impuesto& i : f.totales.porTipo) {
    impuestos_.Insertar(f.clave, i.tipo, i.base, i.importe);
  }
  if (!contado) GuardarCobros(f);
  if (resumen) GuardarAlbaranes(f);
}

// One to three equal parts, the last one takes the cents that are left.
void Generador::GuardarCobros(const Factura& f) {
  const std::int64_t partes = azar_.Entre(1, 3);
  Currency resto = f.totales.total;
  for (std::int64_t i = 1; i <= partes; ++i) {
    const std::int64_t parte = f.totales.total.Units() / partes / 100 * 100;
    const Currency importe = i == partes ? resto : Currency::FromUnits(parte);
    cobros_.Insertar(f.clave, i, f.fecha.PlusSeconds(i * 30 * kSegundosDia), importe);
    resto = resto - importe;
  }
}

// A note for every two lines; the taxes stand with the first one.
void Generador::GuardarAlbaranes(const Factura& f) {
  constexpr std::size_t kLineasPorAlbaran = 2;
  const Cliente& c = *f.cliente;
  for (std::size_t i = 0; i < f.lineas.size(); ++i) {
    const Linea& l = f.lineas[i];
    if (i % kLineasPorAlbaran == 0) {
      albaranes_.Insertar(f.clave.empresa, f.clave.ejercicio, f.clave.serie, ++ultimoAlbaran_,
                          f.clave.codigo, f.fecha, c.nombre, c.nif, c.lugar->direccion, c.lugar->cp,
                          c.lugar->localidad, c.lugar->provincia, c.pais);
    }
    albaranLineas_.Insertar(f.clave.empresa, f.clave.ejercicio, f.clave.serie, ultimoAlbaran_,
                            i % kLineasPorAlbaran + 1, l.articulo, l.descripcion,
                            l.importes.unidades, l.importes.precio, l.importes.precioG);
    if (i > 0) continue;
    for (const Impuesto& impuesto : f.totales.porTipo) {
      albaranImpuestos_.Insertar(f.clave.empresa, f.clave.ejercicio, f.clave.serie, ultimoAlbaran_,
                                 impuesto.tipo, impuesto.base, impuesto.importe);
    }
  }
}

}  // namespace

void CrearFacturas(Connection& conexion, Azar& azar, const std::vector<Cliente>& clientes,
                   std::int32_t n, const Avance& avance) {
  Generador generador(conexion, azar, clientes);
  for (std::int32_t vez = 0; vez < n; ++vez) {
    generador.Crear(vez, n);
    avance(vez + 1);
  }
}

namespace {

/// Lines of tickets: prices carry their taxes.
class LineasTicket {
 public:
  LineasTicket(Connection& conexion, Azar& azar)
      : tabla_(conexion, "TPV_Tickets_Lineas",
               "Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Num_Linea, Cod_Articulo, Cantidad,"
               " Pvp, Dto, Importe_sinDto, Importe, TipoImpuesto, PA"),
        azar_(azar) {}

  /// Gives back what the lines add up to.
  Currency Crear(const EmpresaDemo& empresa, const ClaveTicket& clave) {
    Currency total;
    const std::int64_t lineas = azar_.Entre(1, 4);
    for (std::int64_t i = 1; i <= lineas; ++i) total = total + Linea(empresa, clave, i);
    if (clave.codigo % 3 == 0) {
      tabla_.Insertar(clave, lineas + 1, kLineaDeTexto, 0, 0, 0, 0, 0, 0, 0);
    }
    return total;
  }

 private:
  Currency Linea(const EmpresaDemo& empresa, const ClaveTicket& clave, std::int64_t numero) {
    const ArticuloDemo& a = azar_.Elegir(kArticulos);
    const std::int64_t unidades = azar_.Entre(1, 6);
    const bool promocion = azar_.UnaDe(8);  // one unit is free
    const std::int64_t dto = !promocion && azar_.UnaDe(3) ? azar_.Entre(1, 20) : 0;
    const std::int64_t pvp = Dividir(a.precio, 100) * 100;
    const std::int64_t sinDto = pvp * unidades;
    const std::int64_t rebaja = promocion ? pvp : Dividir(sinDto * dto, 10000) * 100;
    tabla_.Insertar(clave, numero, a.codigo, unidades, Currency::FromUnits(pvp), dto,
                    Currency::FromUnits(sinDto), Currency::FromUnits(sinDto - rebaja),
                    empresa.aplicaIgic ? a.impuesto : std::int16_t{0}, promocion);
    return Currency::FromUnits(sinDto - rebaja);
  }

  Tabla tabla_;
  Azar& azar_;
};

}  // namespace

void CrearTickets(Connection& conexion, Azar& azar, const std::vector<Cliente>& clientes,
                  std::int32_t n, const Avance& avance) {
  constexpr std::int16_t kPrimeraSerie = 50;
  Tabla tickets(conexion, "TPV_Tickets", "Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Total");
  Tabla facturas(conexion, "TPV_Tickets_Factura",
                 "Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente, Factura_Serie,"
                 " Factura_Codigo, Factura_Almacen, Factura_TipoDoc, Factura_Fecha, Hora,"
                 " ExcluirEDI");
  LineasTicket lineas(conexion, azar);
  Envios envios(conexion, azar);
  Reparto reparto(clientes, azar);
  for (std::int32_t vez = 0; vez < n; ++vez) {
    const EmpresaDemo& empresa = kEmpresas[vez % 5 == 4 ? 1 : 0];
    const Cliente& cliente = reparto.Siguiente();
    const FechaHora facturada = FechaDocumento(vez, n);
    const ClaveTicket clave{empresa.codigo,
                            static_cast<std::int16_t>(azar.Entre(1, empresa.almacenes)),
                            static_cast<std::int16_t>(azar.Entre(1, 2)),
                            facturada.PlusSeconds(-azar.Entre(0, 3) * kSegundosDia), vez + 1};
    const FechaHora hora = HoraComercial(facturada, azar);
    tickets.Insertar(clave, lineas.Crear(empresa, clave));
    std::optional<bool> excluida;
    if (vez % 2 == 0) excluida = vez % 12 == 6;
    facturas.Insertar(clave, cliente.codigo, kPrimeraSerie + clave.almacen, vez + 1, clave.almacen,
                      0, facturada, hora, excluida);
    envios.Ticket(cliente, clave, hora, vez);
    avance(vez + 1);
  }
}

}  // namespace kvraedi::demo
