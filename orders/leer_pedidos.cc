#include "orders/leer_pedidos.h"

#include <cstdint>
#include <iterator>
#include <set>
#include <span>
#include <utility>

#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/recortar.h"
#include "frame/sql.h"
#include "kvraedi/error.h"
#include "orders/registros_barras.h"

namespace kvraedi {
namespace {

using barras::Clase;
using barras::Columna;

/// A record that adds to the current order or to its current line.
struct Registro {
  std::string_view etiqueta;
  bool deLinea;
  std::span<const Columna> columnas;
};

constexpr Registro kRegistros[] = {
    {"DTM", false, barras::orders::kDtm},       {"NADSU", false, barras::orders::kNadSu},
    {"NADBY", false, barras::orders::kNadBy},   {"NADDP", false, barras::orders::kNadDp},
    {"IMDLIN", true, barras::orders::kImdLin},  {"QTYLIN", true, barras::orders::kQtyLin},
    {"MOALIN", true, barras::orders::kMoaLin},  {"MOARES", false, barras::orders::kMoaRes},
    {"CNTRES", false, barras::orders::kCntRes},
};

/// A text as the database compares it: without regard to case and trailing blanks.
std::string Comparable(std::string_view texto) {
  std::string comparable(texto.substr(0, texto.find_last_not_of(' ') + 1));
  for (char& letra : comparable) {
    if (letra >= 'a' && letra <= 'z') letra = static_cast<char>(letra - 'a' + 'A');
  }
  return comparable;
}

class Lectura {
 public:
  Lectura(LectorBarras& lector, const std::string& fichero, Connection& conexion, Entorno& entorno)
      : lector_(lector), fichero_(fichero), conexion_(conexion), entorno_(entorno) {}

  std::int32_t Leer() {
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
    TerminarPedido();
    return pedidos_;
  }

 private:
  void NuevoPedido();
  void TerminarPedido() const;
  void NuevaLinea();
  void Actualizar(const Registro& registro);

  void DistinguirLinea();
  void ExigirPedido() const {
    if (pedido_.empty()) lector_.Rechazar(0, "se esperaba antes un pedido (ORD)");
  }
  void ComprobarPedido() const;
  void PonerValor(const Columna& columna);
  std::string Numero(std::size_t campo) const;
  std::string Fecha(const Columna& columna);
  std::string Ahora() const { return FechaTexto(entorno_.Now()); }
  template <class... Piezas>
  void Poner(const Piezas&... piezas) {
    (SqlAppend(sql_, piezas), ...);
  }
  void Ejecutar();

  LectorBarras& lector_;
  const std::string& fichero_;
  Connection& conexion_;
  Entorno& entorno_;
  std::int32_t pedidos_ = 0;
  std::string pedido_;  // of the last ORD, "" before the first
  bool tieneEmision_ = false;
  std::set<std::pair<std::string, std::string>> lineas_;  // of it: bar code and number
  std::string barras_;                                    // bar code of the last LIN
  std::string distingueLinea_;  // what its updates ask for besides the bar code
  std::string sql_;
};

void Lectura::ComprobarPedido() const {
  const std::string_view numero = lector_.Texto(1);
  constexpr std::size_t kMasCifras = 17;
  if (numero.empty() || numero.size() > kMasCifras ||
      numero.find_first_not_of("0123456789") != std::string_view::npos) {
    lector_.Rechazar(1, "se esperaba un número de pedido de 1 a 17 cifras");
  }
}

void Lectura::NuevoPedido() {
  TerminarPedido();
  ComprobarPedido();
  pedido_ = lector_.Texto(1);
  ++pedidos_;
  tieneEmision_ = false;
  lineas_.clear();
  if (PedidoRecibido(conexion_, pedido_))
    lector_.Rechazar(1, "se esperaba un pedido que no esté ya recibido");
  sql_.clear();
  Poner("INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, Doc_Tipo, Doc_Funcion, Hora) VALUES (",
        SqlTexto{fichero_}, ", ", SqlTexto{pedido_}, ", ", SqlTexto{lector_.TextoLimpio(2)}, ", ",
        SqlTexto{lector_.TextoLimpio(3)}, ", ", SqlTexto{Ahora()}, ")");
  Ejecutar();
}

/// The second pass cannot make an order without that date, and would hold back all others.
void Lectura::TerminarPedido() const {
  if (pedido_.empty() || tieneEmision_) return;
  throw Error(kErrorTypeMismatch, "kvraedi",
              lector_.Nombre() + ", pedido " + pedido_ +
                  ": no tiene fecha de emisión (registro DTM, campo 1)");
}

/// Lines of an order with one bar code are told apart by their number, from the second on: the
/// records of the first have been taken in before.
void Lectura::DistinguirLinea() {
  constexpr std::size_t kNumero = 3;
  const std::string_view numero = lector_.TextoLimpio(kNumero);
  const std::string barras = Comparable(barras_);
  const auto [linea, nueva] = lineas_.emplace(barras, Comparable(numero));
  if (!nueva) {
    lector_.Rechazar(
        kNumero, "se esperaba un número que distinga las líneas del código \"" + barras_ + "\"");
  }
  const bool repetida = (linea != lineas_.begin() && std::prev(linea)->first == barras) ||
                        (std::next(linea) != lineas_.end() && std::next(linea)->first == barras);
  distingueLinea_ = repetida ? Sql("   AND Num_Linea =", SqlTexto{numero}) : "";
}

void Lectura::NuevaLinea() {
  ExigirPedido();
  barras_ = lector_.TextoLimpio(1);
  DistinguirLinea();
  sql_.clear();
  Poner(
      "INSERT INTO EDI_PedidosClientes_Lineas (Fichero, Doc_Num, Cod_Barras, Tipo_EAN, Num_Linea,"
      " Hora) VALUES (",
      SqlTexto{fichero_}, ", ", SqlTexto{pedido_}, ", ", SqlTexto{barras_}, ", ",
      SqlTexto{lector_.TextoLimpio(2)}, ", ", SqlTexto{lector_.TextoLimpio(3)}, ", ",
      SqlTexto{Ahora()}, ")");
  Ejecutar();
}

void Lectura::Actualizar(const Registro& registro) {
  ExigirPedido();
  if (registro.deLinea && lineas_.empty()) lector_.Rechazar(0, "se esperaba antes una línea (LIN)");
  sql_.clear();
  Poner(registro.deLinea ? "UPDATE EDI_PedidosClientes_Lineas SET "
                         : "UPDATE EDI_PedidosClientes SET ");
  for (const Columna& columna : registro.columnas) {
    if (!lector_.Tiene(columna.campo)) break;
    Poner(&columna == registro.columnas.data() ? " " : " ,", columna.nombre, " =");
    PonerValor(columna);
  }
  Poner(" WHERE Doc_Num =", pedido_);
  if (registro.deLinea) Poner("   AND Cod_Barras =", SqlTexto{barras_}, distingueLinea_);
  Ejecutar();
}

void Lectura::PonerValor(const Columna& columna) {
  switch (columna.clase) {
    case Clase::kTexto:
      return Poner(SqlTexto{lector_.TextoLimpio(columna.campo)});
    case Clase::kGln:
      return Poner(SqlTexto{lector_.Gln(columna.campo)});
    case Clase::kNumero:
      return Poner(Numero(columna.campo));
    case Clase::kEmision:
    case Clase::kFecha:
      return Poner(SqlTexto{Fecha(columna)});
  }
}

/// A number that is too large for the suite's money is left to the column that it goes to.
std::string Lectura::Numero(std::size_t campo) const {
  const auto numero = NumeroRecibido(lector_.Texto(campo));
  return numero ? TextoDe(*numero) : lector_.Cifras(campo);
}

/// Without a day of delivery an order can be made, without one of emission it cannot: a day that
/// the database's dates do not reach is none.
std::string Lectura::Fecha(const Columna& columna) {
  const std::string_view texto = lector_.Texto(columna.campo);
  const auto dia = DiaUsable(texto);
  if (columna.clase == Clase::kEmision) {
    tieneEmision_ = dia.has_value();
    if (!dia) {
      lector_.Rechazar(columna.campo, std::string("se esperaba la fecha de emisión del pedido ")
                                          .append(pedido_)
                                          .append(",")
                                          .append(kDiaUsable));
    }
  } else if (!FechaHora::Parse(texto)) {
    lector_.Rechazar(columna.campo, "se esperaba una fecha");
  }
  return dia ? FormatearFecha(*dia, "yyyymmdd") : std::string();
}

void Lectura::Ejecutar() {
  std::int64_t filas = 0;
  try {
    filas = conexion_.Execute(sql_);
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(), lector_.Lugar() + ": " + error.Description());
  }
  // What the database takes for equal: a record would write over another order or line.
  if (filas > 1) {
    throw Error(kErrorTypeMismatch, "kvraedi",
                lector_.Lugar() + ": corresponde a más de un pedido " + pedido_ +
                    " o a más de una línea \"" + barras_ + "\" de él");
  }
}

}  // namespace

bool EsInicioOrders(std::string_view linea) {
  linea = Recortar(linea);
  return linea == "ORDERS_D_96A_UN_EAN008" || linea == "ORDERS_D_93A_UN_EAN007";
}

bool PedidoRecibido(Connection& conexion, std::string_view numero) {
  return conexion
             .Open(Sql("SELECT COUNT(*) AS Existe FROM EDI_PedidosClientes WHERE Doc_Num =",
                       SqlTexto{numero}))
             ->Get<std::int64_t>("Existe") > 0;
}

std::int32_t LeerPedidos(LectorBarras& lector, const std::string& fichero, Connection& conexion,
                         Entorno& entorno) {
  return Lectura(lector, fichero, conexion, entorno).Leer();
}

}  // namespace kvraedi
