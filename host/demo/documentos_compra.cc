#include "host/demo/documentos_compra.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/demo/datos.h"
#include "host/demo/importes.h"
#include "host/demo/tabla.h"

namespace kvraedi::demo {
namespace {

constexpr std::int64_t kUno = Currency::kScale;
constexpr std::int64_t kDia = 86400;  // seconds
constexpr std::int16_t kUltimoAlmacen = 6;
constexpr std::int32_t kProveedores = 13;  // the last one has no row in their file
constexpr std::int32_t kSinArticulo = 9999;

constexpr auto kDescripciones = std::to_array<std::string_view>({
    "Arroz redondo; saco de 25 kg",
    "Descripción del proveedor, con \"comillas\" y l'apòstrof, que pasa de los setenta caracteres",
    "Primera línea\r\nsegunda línea\ty un tabulador",
    "Oferta 3 x 2 € (añada 2025)",
});

struct Linea {
  std::int32_t articulo = 0;
  std::string descripcion;
  std::optional<std::string> referencia;
  Currency unidades;
  Currency bultos;
  Currency palets;
  Currency coste;
};

struct Pedido {
  std::int16_t empresa = 1;
  std::int32_t codigo = 0;
  std::int32_t proveedor = 0;
  std::int16_t almacen = 0;
  FechaHora fecha;
  std::optional<FechaHora> esperada;
  std::optional<FechaHora> esperadaFin;
  std::vector<Linea> lineas;
};

Currency Importe(const Linea& linea) {
  return Currency::FromUnits(Dividir(linea.unidades.Units() * linea.coste.Units(), kUno));
}

class TablaPedidos {
 public:
  explicit TablaPedidos(Connection& conexion)
      : pedidos_(conexion, "Pedidos_Proveedores",
                 "Cod_Empresa, Codigo, Cod_Proveedor, Cod_Almacen, Fecha, Fecha_Esperada,"
                 " Fecha_EsperadaFin, Num_Lineas, Importe"),
        lineas_(conexion, "Pedidos_Proveedores_Lineas",
                "Cod_Empresa, Codigo, Num_Linea, Cod_Articulo, Ref, Descripcion, Unidades, Bultos,"
                " Palets, CFraCImp") {}

  void Guardar(const Pedido& p) {
    Currency importe;
    for (const Linea& linea : p.lineas) importe = importe + Importe(linea);
    pedidos_.Insertar(p.empresa, p.codigo, p.proveedor, p.almacen, p.fecha, p.esperada,
                      p.esperadaFin, p.lineas.size(), importe);
    int numero = 0;
    for (const Linea& l : p.lineas) {
      lineas_.Insertar(p.empresa, p.codigo, ++numero, l.articulo, l.referencia, l.descripcion,
                       l.unidades, l.bultos, l.palets, l.coste);
    }
  }

 private:
  Tabla pedidos_;
  Tabla lineas_;
};

Linea CrearLinea(std::int32_t pedido, std::int32_t proveedor, Azar& azar) {
  const std::size_t cual = azar.Siguiente() % kArticulos.size();
  const ArticuloDemo& a = kArticulos[cual];
  Linea linea;
  linea.articulo = azar.UnaDe(30) ? kSinArticulo : a.codigo;
  linea.descripcion = azar.UnaDe(4) ? azar.Elegir(kDescripciones) : a.descripcion;
  if (!azar.UnaDe(8)) {
    linea.referencia = "R" + std::to_string(proveedor) + "-" + std::to_string(cual + 1);
  }
  // Whole numbers, halves, and four decimals for what is sold in bulk.
  const std::int64_t unidades = azar.Entre(1, 96) * (pedido % 3 == 2 ? kUno / 2 : kUno);
  linea.unidades = Currency::FromUnits(a.aGranel ? azar.Entre(1, 400000) : unidades);
  if (pedido % 4 != 0) linea.bultos = Currency::FromUnits(azar.Entre(0, 12) * kUno);
  if (pedido % 5 == 1) linea.palets = Currency::FromUnits(azar.Entre(0, 3) * kUno / 2);
  linea.coste = Currency::FromUnits(a.precio * azar.Entre(50, 80) / 100);
  return linea;
}

Pedido CrearPedido(std::int16_t empresa, std::int32_t codigo, std::int16_t almacenes, Azar& azar) {
  Pedido p;
  p.empresa = empresa;
  p.codigo = codigo;
  p.proveedor = (codigo - 1) % kProveedores + 1;
  p.almacen = static_cast<std::int16_t>((codigo - 1) % almacenes + 1);
  p.fecha = FechaHora{2026, 1, 2}.PlusSeconds(azar.Entre(0, 120) * kDia);
  if (codigo % 9 == 4) p.fecha = p.fecha.PlusSeconds(azar.Entre(1, kDia - 1));
  if (codigo % 7 != 3) p.esperada = p.fecha.PlusSeconds(3 * kDia);
  if (codigo % 7 == 1) p.esperadaFin = p.fecha.PlusSeconds(5 * kDia);
  const std::int64_t lineas = codigo % 10 == 0 ? 0 : codigo % 17 == 5 ? 60 : azar.Entre(1, 8);
  for (std::int64_t i = 0; i < lineas; ++i) {
    p.lineas.push_back(CrearLinea(codigo, p.proveedor, azar));
  }
  return p;
}

struct Entrada {
  std::int16_t empresa = 1;
  std::int16_t ejercicio = 2026;
  std::int16_t almacen = 0;
  std::int32_t codigo = 0;
  FechaHora fecha;
  std::int32_t proveedor = 0;
  std::int32_t pedido = 0;
  std::optional<std::string> documento;
};

/// One tax row: the rate's type and its base.
struct Base {
  std::int16_t tipo;
  Currency importe;
};

class TablaEntradas {
 public:
  explicit TablaEntradas(Connection& conexion)
      : entradas_(conexion, "Entradas",
                  "Cod_Empresa, Cod_Ejercicio, Cod_Almacen, Codigo, Fecha, Proveedor, Cod_Pedido,"
                  " Documento, ImporteFra, ImporteTotal"),
        impuestos_(conexion, "Entradas_Impuestos",
                   "Cod_Empresa, Cod_Ejercicio, Cod_Almacen, Codigo, Tipo, Base, Valor_Tipo,"
                   " Importe") {}

  void Guardar(const Entrada& e, const std::vector<Base>& bases) {
    Currency base;
    Currency total;
    for (const auto& [tipo, importe] : bases) {
      const Currency tasa =
          Currency::FromUnits(kImpuestos[static_cast<std::size_t>(tipo)].porcentaje);
      const Currency cuota =
          Currency::FromUnits(Dividir(importe.Units() * tasa.Units(), 100 * kUno));
      impuestos_.Insertar(e.empresa, e.ejercicio, e.almacen, e.codigo, tipo, importe, tasa, cuota);
      base = base + importe;
      total = total + importe + cuota;
    }
    entradas_.Insertar(e.empresa, e.ejercicio, e.almacen, e.codigo, e.fecha, e.proveedor, e.pedido,
                       e.documento, base, total);
  }

 private:
  Tabla entradas_;
  Tabla impuestos_;
};

Entrada CrearEntrada(std::int16_t empresa, std::int16_t almacen, std::int32_t codigo, Azar& azar) {
  Entrada e;
  e.empresa = empresa;
  e.almacen = almacen;
  e.codigo = codigo;
  e.fecha = FechaHora{2026, 2, 1}.PlusSeconds(azar.Entre(0, 120) * kDia);
  e.proveedor = (codigo - 1) % kProveedores + 1;
  if (codigo % 3 != 0) e.pedido = static_cast<std::int32_t>(azar.Entre(1, 60));
  if (codigo % 8 != 7) e.documento = "ALB/" + std::to_string(azar.Entre(1, 99999));
  if (codigo % 8 == 3) e.documento = "Ñ-2026-ALBARÁN-" + std::to_string(azar.Entre(10000, 99999));
  return e;
}

std::vector<Base> CrearBases(std::int32_t codigo, Azar& azar) {
  std::vector<Base> bases;
  const auto tipos = static_cast<std::int16_t>(codigo % 6);
  for (std::int16_t tipo = 1; tipo <= tipos; ++tipo) {
    bases.push_back({tipo, Currency::FromUnits(azar.Entre(-50000, 99999999))});
  }
  return bases;
}

}  // namespace

void CrearPedidosProveedores(Connection& conexion, Azar& azar) {
  TablaPedidos tabla(conexion);
  for (std::int32_t codigo = 1; codigo <= 60; ++codigo) {
    tabla.Guardar(CrearPedido(1, codigo, kUltimoAlmacen, azar));
  }
  for (std::int32_t codigo = 1; codigo <= 20; ++codigo) {
    tabla.Guardar(CrearPedido(2, codigo, kEmpresas[1].almacenes, azar));
  }
  const FechaHora fecha{2026, 3, 2};
  Pedido p{1, 1234, 1, 3, fecha, fecha.PlusSeconds(7 * kDia), fecha.PlusSeconds(9 * kDia), {}};
  p.lineas.push_back({1001,
                      "Gofio de millo tostado 1 kg",
                      "R1-1",
                      Currency::FromInteger(12),
                      Currency::FromInteger(2),
                      {},
                      Currency::FromUnits(15000)});
  p.lineas.push_back({1003, "Mojo picón \"La Abuela\" 250 g", "R1-3", Currency::FromUnits(25000),
                      Currency::FromInteger(1), Currency::FromUnits(5000),
                      Currency::FromUnits(23999)});
  tabla.Guardar(p);
}

void CrearEntradas(Connection& conexion, Azar& azar) {
  TablaEntradas tabla(conexion);
  for (std::int16_t almacen = 1; almacen <= kUltimoAlmacen; ++almacen) {
    for (std::int32_t codigo = 1; codigo <= 12; ++codigo) {
      tabla.Guardar(CrearEntrada(1, almacen, codigo, azar), CrearBases(codigo, azar));
    }
  }
  for (std::int32_t codigo = 1; codigo <= 6; ++codigo) {
    tabla.Guardar(CrearEntrada(2, 1, codigo, azar), CrearBases(codigo, azar));
  }
  tabla.Guardar({1, 2026, 3, 157, FechaHora{2026, 3, 9}, 1, 1234, "ALB-2026/000157"},
                {{2, Currency::FromUnits(180000)}, {3, Currency::FromUnits(59998)}});
}

}  // namespace kvraedi::demo
