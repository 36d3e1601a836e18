#include "orders/leer_pedidos.h"

#include <cstdint>
#include <span>

#include "frame/formato.h"
#include "frame/recortar.h"
#include "frame/sql.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

enum class Clase : std::uint8_t { kTexto, kNumero, kFecha };

/// A column of a staging table and the field of the record that it takes.
struct Columna {
  std::size_t campo;
  std::string_view nombre;
  Clase clase;
  std::size_t ancho = 0;  ///< of a text
};

constexpr std::size_t kAnchoGln = 35;
constexpr std::size_t kAnchoNombre = 175;
constexpr std::size_t kAnchoLocalidad = 70;
constexpr std::size_t kAnchoCodigo = 10;
constexpr std::size_t kAnchoPedido = 17;
constexpr std::size_t kAnchoDescripcion = 350;

constexpr Columna kDtm[] = {
    {1, "Fecha_Emision", Clase::kFecha},
    {2, "Fecha_Ini_Entrega", Clase::kFecha},
    {3, "Fecha_Fin_Entrega", Clase::kFecha},
};
constexpr Columna kNadSu[] = {{1, "GLN_Proveedor", Clase::kTexto, kAnchoGln}};
constexpr Columna kNadBy[] = {
    {1, "GLN_Cliente", Clase::kTexto, kAnchoGln},
    {5, "Nombre_Cliente", Clase::kTexto, kAnchoNombre},
    {6, "Direccion_Cliente", Clase::kTexto, kAnchoNombre},
    {7, "Localidad_Cliente", Clase::kTexto, kAnchoLocalidad},
    {8, "CP_Cliente", Clase::kTexto, kAnchoCodigo},
    {9, "Nif_Cliente", Clase::kTexto, kAnchoGln},
};
constexpr Columna kNadDp[] = {
    {1, "GLN_ClienteEntrega", Clase::kTexto, kAnchoGln},
    {3, "Nombre_ClienteEntrega", Clase::kTexto, kAnchoNombre},
    {4, "Direccion_ClienteEntrega", Clase::kTexto, kAnchoNombre},
    {5, "Localidad_ClienteEntrega", Clase::kTexto, kAnchoLocalidad},
    {6, "CP_ClienteEntrega", Clase::kTexto, kAnchoCodigo},
};
constexpr Columna kImdLin[] = {
    {1, "Desc_Calificador", Clase::kTexto, kAnchoCodigo},
    {2, "Desc_Caracteristica", Clase::kTexto, kAnchoCodigo},
    {3, "Desc_Cod", Clase::kTexto, kAnchoGln},
    {4, "Descripcion", Clase::kTexto, kAnchoDescripcion},
};
constexpr Columna kQtyLin[] = {
    {1, "Cantidad_Calificador", Clase::kTexto, kAnchoCodigo},
    {2, "Cantidad", Clase::kNumero},
    {3, "Cantidad_Medida", Clase::kTexto, kAnchoCodigo},
};
constexpr Columna kMoaLin[] = {{1, "Importe_Neto_Linea", Clase::kNumero}};
constexpr Columna kMoaRes[] = {
    {1, "Importe_Neto", Clase::kNumero},           {2, "Importe_Bruto", Clase::kNumero},
    {3, "Importe_Impuestos", Clase::kNumero},      {4, "Importe_Pagar", Clase::kNumero},
    {5, "Importe_Base_Imponible", Clase::kNumero},
};
constexpr Columna kCntRes[] = {
    {1, "Bultos", Clase::kNumero},           {2, "Palets", Clase::kNumero},
    {3, "Num_Articulos", Clase::kNumero},    {4, "Num_Lineas", Clase::kNumero},
    {5, "Peso_Bruto_Total", Clase::kNumero},
};

/// A record that adds to the current order or to its current line.
struct Registro {
  std::string_view etiqueta;
  bool deLinea;
  std::span<const Columna> columnas;
};

constexpr Registro kRegistros[] = {
    {"DTM", false, kDtm},      {"NADSU", false, kNadSu},   {"NADBY", false, kNadBy},
    {"NADDP", false, kNadDp},  {"IMDLIN", true, kImdLin},  {"QTYLIN", true, kQtyLin},
    {"MOALIN", true, kMoaLin}, {"MOARES", false, kMoaRes}, {"CNTRES", false, kCntRes},
};

class Lectura {
 public:
  Lectura(LectorBarras& lector, const std::string& fichero, Connection& conexion, Entorno& entorno)
      : lector_(lector), fichero_(fichero), conexion_(conexion), entorno_(entorno) {}

  void Leer() {
    while (lector_.Siguiente()) {
      const std::string_view etiqueta = lector_.Etiqueta();
      if (etiqueta == "ORD") {
        NuevoPedido();
      } else if (etiqueta == "LIN") {
        NuevaLinea();
      } else {
        for (const Registro& registro : kRegistros) {
          if (registro.etiqueta == etiqueta) Actualizar(registro);
        }
      }
    }
  }

 private:
  void NuevoPedido();
  void NuevaLinea();
  void Actualizar(const Registro& registro);

  void ExigirPedido() const {
    if (pedido_.empty()) lector_.Rechazar(0, "se esperaba antes un pedido (ORD)");
  }
  void ComprobarPedido() const;
  bool YaRecibido() const;
  void PonerValor(const Columna& columna);
  std::string_view Fecha(std::size_t campo) const;
  std::string Ahora() const { return FechaTexto(entorno_.Now()); }
  template <class... Piezas>
  void Poner(const Piezas&... piezas) {
    (SqlAppend(sql_, piezas), ...);
  }
  std::int64_t Ejecutar();

  LectorBarras& lector_;
  const std::string& fichero_;
  Connection& conexion_;
  Entorno& entorno_;
  std::string pedido_;  // of the last ORD, "" before the first
  bool hayLinea_ = false;
  std::string barras_;  // bar code of the last LIN
  std::string sql_;
};

void Lectura::ComprobarPedido() const {
  const std::string_view numero = lector_.Texto(1);
  if (numero.empty() || numero.size() > kAnchoPedido ||
      numero.find_first_not_of("0123456789") != std::string_view::npos) {
    lector_.Rechazar(1, "se esperaba un número de pedido de 1 a 17 cifras");
  }
}

bool Lectura::YaRecibido() const {
  return conexion_
             .Open(
                 Sql("SELECT COUNT(*) AS Existe FROM EDI_PedidosClientes WHERE Doc_Num =", pedido_))
             ->Get<std::int64_t>("Existe") > 0;
}

void Lectura::NuevoPedido() {
  ComprobarPedido();
  pedido_ = lector_.Texto(1);
  hayLinea_ = false;
  if (YaRecibido()) lector_.Rechazar(1, "se esperaba un pedido que no esté ya recibido");
  sql_.clear();
  Poner("INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, Doc_Tipo, Doc_Funcion, Hora) VALUES (",
        SqlTexto{fichero_}, ", ", SqlTexto{pedido_}, ", ", SqlTexto{lector_.Texto(2, kAnchoCodigo)},
        ", ", SqlTexto{lector_.Texto(3, kAnchoCodigo)}, ", ", SqlTexto{Ahora()}, ")");
  Ejecutar();
}

void Lectura::NuevaLinea() {
  ExigirPedido();
  barras_ = lector_.Texto(1, kAnchoGln);
  hayLinea_ = true;
  sql_.clear();
  Poner(
      "INSERT INTO EDI_PedidosClientes_Lineas (Fichero, Doc_Num, Cod_Barras, Tipo_EAN, Num_Linea,"
      " Hora) VALUES (",
      SqlTexto{fichero_}, ", ", SqlTexto{pedido_}, ", ", SqlTexto{barras_}, ", ",
      SqlTexto{lector_.Texto(2, kAnchoCodigo)}, ", ", SqlTexto{lector_.Texto(3, kAnchoCodigo)},
      ", ", SqlTexto{Ahora()}, ")");
  Ejecutar();
}

void Lectura::Actualizar(const Registro& registro) {
  ExigirPedido();
  if (registro.deLinea && !hayLinea_) lector_.Rechazar(0, "se esperaba antes una línea (LIN)");
  sql_.clear();
  Poner(registro.deLinea ? "UPDATE EDI_PedidosClientes_Lineas SET "
                         : "UPDATE EDI_PedidosClientes SET ");
  for (const Columna& columna : registro.columnas) {
    if (!lector_.Tiene(columna.campo)) break;
    Poner(&columna == registro.columnas.data() ? " " : " ,", columna.nombre, " =");
    PonerValor(columna);
  }
  Poner(" WHERE Doc_Num =", pedido_);
  if (registro.deLinea) Poner("   AND Cod_Barras =", SqlTexto{barras_});
  // The bar code tells the lines of an order apart: a record would write over another line.
  if (Ejecutar() > 1 && registro.deLinea) {
    throw Error(kErrorTypeMismatch, "kvraedi",
                lector_.Lugar() + ": el código de barras \"" + barras_ +
                    "\" (LIN, campo 1) está en más de una línea del pedido " + pedido_);
  }
}

void Lectura::PonerValor(const Columna& columna) {
  switch (columna.clase) {
    case Clase::kTexto:
      return Poner(SqlTexto{lector_.Texto(columna.campo, columna.ancho)});
    case Clase::kNumero:
      return Poner(TextoDe(lector_.Numero(columna.campo)));
    case Clase::kFecha:
      return Poner(SqlTexto{Fecha(columna.campo)});
  }
}

std::string_view Lectura::Fecha(std::size_t campo) const {
  const std::string_view texto = lector_.Texto(campo);
  if (Recortar(texto).empty()) return {};
  if (!FechaHora::Parse(texto)) lector_.Rechazar(campo, "se esperaba una fecha");
  return texto;
}

std::int64_t Lectura::Ejecutar() {
  try {
    return conexion_.Execute(sql_);
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(), lector_.Lugar() + ": " + error.Description());
  }
}

}  // namespace

bool EsInicioOrders(std::string_view linea) {
  linea = Recortar(linea);
  return linea == "ORDERS_D_96A_UN_EAN008" || linea == "ORDERS_D_93A_UN_EAN007";
}

void LeerPedidos(LectorBarras& lector, const std::string& fichero, Connection& conexion,
                 Entorno& entorno) {
  Lectura(lector, fichero, conexion, entorno).Leer();
}

}  // namespace kvraedi
