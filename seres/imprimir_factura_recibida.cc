#include <array>
#include <string>

#include "frame/accion.h"
#include "frame/clsView.h"
#include "frame/formato.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "seres/frmVisorFactura.h"
#include "seres/frmVisorFactura_DescLineas.h"

namespace kvraedi {
namespace {

constexpr std::int16_t kZoom = 120;

/// A number as it is shown, for a statement: checked, with a point. Nothing shown is no value.
std::string NumeroSql(std::string_view texto) {
  if (texto.empty()) return "NULL";
  const auto numero = NumeroRecibido(texto);
  if (!numero) ThrowTypeMismatch();
  return TextoDe(*numero);
}

/// An amount of the header; one that was not read is 0.
std::string ImporteSql(const ui::Label& etiqueta) {
  return NumeroSql(etiqueta.Caption().empty() ? "0" : etiqueta.Caption());
}

std::string BorrarFilas(std::string_view tabla, std::string_view terminal) {
  return Sql("DELETE FROM ", tabla, " WHERE Terminal = ", SqlTexto{terminal});
}

using CeldasDeDescuento = std::array<std::string_view, kColumnasDescuento>;

CeldasDeDescuento Celdas(const ui::Grid& grid, int fila) {
  CeldasDeDescuento celdas;
  for (int columna = 0; columna < kColumnasDescuento; ++columna) {
    celdas[static_cast<std::size_t>(columna)] = grid.Cell(fila, columna);
  }
  return celdas;
}

/// The number of a discount, which in a general one may be any text.
std::string NumeroDeDescuento(std::string_view texto) {
  return NumeroRecibido(texto) ? NumeroSql(texto) : Sql(SqlTexto{texto});
}

/// The values of a discount, in the order of its columns.
std::string Valores(const CeldasDeDescuento& celdas) {
  return Sql(NumeroDeDescuento(celdas[kDescuentoNumero]), ",",
             SqlTexto{celdas[kDescuentoIndicador]}, ",", NumeroSql(celdas[kDescuentoPorcentaje]),
             ",", NumeroSql(celdas[kDescuentoImporte]), ",", SqlTexto{celdas[kDescuentoTipo]});
}

std::string InsertarDescuento(std::string_view terminal, const CeldasDeDescuento& celdas) {
  return Sql(
      "INSERT INTO Temp_EDI_Factura_Desc_Cab (Terminal, Numero, Indicador, Porcentaje, Importe, "
      "Tipo) "
      " VALUES (",
      SqlTexto{terminal}, ",", Valores(celdas), ")");
}

std::string InsertarLinea(std::string_view terminal, const ui::Grid& lineas, int fila) {
  const auto numero = [&](int columna) { return NumeroSql(lineas.Cell(fila, columna)); };
  return Sql(
      "INSERT INTO Temp_EDI_Factura_Lineas (Terminal, Codigo, Descripcion, Unidades, Neto, Bruto, "
      "NetoLinea, NumLinea) "
      " VALUES (",
      SqlTexto{terminal}, ",", SqlTexto{lineas.Cell(fila, kLineaCodigo)}, ",",
      SqlTexto{lineas.Cell(fila, kLineaDescripcion)}, ",", numero(kLineaCantidad), ",",
      numero(kLineaNeto), ",", numero(kLineaBruto), ",", numero(kLineaImporte), ",",
      numero(kLineaNumero), ")");
}

std::string InsertarDescuentoLinea(std::string_view terminal, const DescuentoDeLinea& entrada) {
  const auto celdas = CeldasDescuento(entrada.descuento);
  CeldasDeDescuento textos;
  std::copy(celdas.begin(), celdas.end(), textos.begin());
  return Sql(
      "INSERT INTO Temp_EDI_Factura_Desc_Linea (Terminal, NumLinea, Numero, Indicador, Porcentaje, "
      "Importe, Tipo) "
      " VALUES (",
      SqlTexto{terminal}, ",", entrada.fila, ",", Valores(textos), ")");
}

/// Points every table of a report at the suite's database.
void Ubicar(Informe& informe) {
  OrigenTabla origen{.ubicacion = {},
                     .odbcNombre = ParametroTexto("ODBCNombre"),
                     .baseDatos = ParametroTexto("ODBCBaseDatos"),
                     .usuario = ParametroTexto("ODBCUsuario"),
                     .password = ParametroTexto("ODBCPassword")};
  for (const std::string& tabla : informe.Tablas()) {
    origen.ubicacion.assign(origen.baseDatos).append(".dbo.").append(tabla);
    informe.Ubicar(tabla, origen);
  }
}

std::shared_ptr<Informe> AbrirInforme(std::string_view terminal) {
  const auto fichero =
      RutaDe(EmpresaActual().RutaAplicacion()) / "Rpt" / "EDI Factura Recibida.rpt";
  std::shared_ptr<Informe> informe =
      SuiteActual().AbrirInforme(EntornoActual(), SesionActual().conexion, fichero);
  Ubicar(*informe);
  if (Informe* const empresa = informe->Subinforme("Empresa.rpt")) {
    Ubicar(*empresa);
    empresa->Filtrar("Codigo", std::to_string(EmpresaActual().CodigoEmpresa()));
  }
  informe->Filtrar("Terminal", terminal);
  return informe;
}

}  // namespace

std::string frmVisorFactura::InsertarCabecera(std::string_view terminal) const {
  const auto texto = [](const ui::Label& etiqueta) { return SqlTexto{etiqueta.Caption()}; };
  return Sql(
      "INSERT INTO Temp_EDI_Factura_Cab (Terminal,Mensaje,Codigo,Tipo,Estado,FechaDocumento,"
      "CodigoEmisor,Nombre, "
      "NIF,Direccion,Ciudad,CP,ImporteNeto,ImporteBase,ImporteImpuesto,ImportePagar, "
      "Observaciones) "
      " VALUES (",
      SqlTexto{terminal}, ",", texto(lblMensaje), ",", texto(lblNumero), ",", texto(lblTipo), ",",
      texto(lblFuncion), ",", texto(lblFecha), ",", texto(lblGLN), ",", texto(lblNombre), ",",
      texto(lblNIF), ",", texto(lblDireccion), ",", texto(lblCiudad), ",", texto(lblCP), ",",
      ImporteSql(lblNeto), ",", ImporteSql(lblBase), ",", ImporteSql(lblImpuestos), ",",
      ImporteSql(lblTotal), ",", SqlTexto{txtObservaciones.Text()}, ")");
}

void frmVisorFactura::GuardarImpresion(std::string_view terminal) const {
  Connection& conexion = ConexionActual();
  for (const char* tabla : {"Temp_EDI_Factura_Cab", "Temp_EDI_Factura_Desc_Cab",
                            "Temp_EDI_Factura_Lineas", "Temp_EDI_Factura_Desc_Linea"}) {
    conexion.Execute(BorrarFilas(tabla, terminal));
  }
  conexion.Execute(InsertarCabecera(terminal));
  for (int fila = 1; fila < vsDescuentos.Rows(); ++fila) {
    conexion.Execute(InsertarDescuento(terminal, Celdas(vsDescuentos, fila)));
  }
  for (int fila = 1; fila < vsLineas.Rows(); ++fila) {
    conexion.Execute(InsertarLinea(terminal, vsLineas, fila));
  }
  for (const DescuentoDeLinea& entrada : descuentosLinea_) {
    conexion.Execute(InsertarDescuentoLinea(terminal, entrada));
  }
}

void frmVisorFactura::cmdImprimir_Click() {
  Accion("frmVisorFactura:cmdImprimir_Click", [&] {
    MsgOp(true, kMensajeOperacion);
    const std::string terminal = EntornoActual().TerminalName();
    GuardarImpresion(terminal);
    clsView vista;
    vista.Report(AbrirInforme(terminal));
    MsgOp(false, kMensajeOperacion);
    vista.Cargar(true, kZoom);
  });
}

}  // namespace kvraedi
