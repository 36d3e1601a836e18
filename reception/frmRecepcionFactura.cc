#include "reception/frmRecepcionFactura.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/formato.h"
#include "frame/intervalo_fechas.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/recortar.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "reception/frmEditor_Comentarios.h"
#include "reception/visualizar_factura.h"

namespace kvraedi {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, kColumnasRecibida> kColumnas = {{
    {"Factura", 1500, Alignment::kRight},
    {"Fecha", 1000, Alignment::kCenter},
    {"Proveedor", 600, Alignment::kRight},
    {"Proveedor", 4000},
    {"Importe", 1100, Alignment::kRight},
    {"Usuario ( Visado )", 600, Alignment::kRight},
    {"Usuario ( Visado )", 4000},
    {"Observaciones", 5000},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
}};

/// Where the list's columns stand in its recordset, looked up once for all rows.
struct Campos {
  explicit Campos(const Recordset& rs)
      : documento(rs.Field("Documento")),
        fecha(rs.Field("Fecha")),
        proveedor(rs.Field("Cod_Proveedor")),
        proveedorNombre(rs.Field("Prov_Nombre")),
        total(rs.Field("Total")),
        usuario(rs.Field("Cod_Usuario_Visado")),
        usuarioNombre(rs.Field("nombreUsuarioVisado")),
        observaciones(rs.Field("Observ")),
        identificador(rs.Field("IdentificadorMsg")),
        plataforma(rs.Field("Cod_EDIPlat")),
        tipoMensaje(rs.Field("Cod_EDITipoMsg")) {}

  int documento, fecha, proveedor, proveedorNombre, total, usuario, usuarioNombre, observaciones,
      identificador, plataforma, tipoMensaje;
};

void AnadirFila(ui::Grid& grid, const Recordset& rs, const Campos& campo) {
  const auto texto = [&](int columna) { return rs.GetOrEmpty<std::string_view>(columna); };
  const std::string fecha =
      rs.IsNull(campo.fecha) ? std::string() : FechaTexto(rs.Get<FechaHora>(campo.fecha));
  const std::string total =
      rs.IsNull(campo.total) ? std::string() : NumeroTexto(rs.Get<Currency>(campo.total), 2);
  const bool visada = rs.GetOrEmpty<std::int32_t>(campo.usuario) != 0;
  const std::array<std::string_view, kColumnasRecibida> celdas = {
      texto(campo.documento),
      fecha,
      texto(campo.proveedor),
      texto(campo.proveedorNombre),
      total,
      visada ? texto(campo.usuario) : std::string_view(),
      texto(campo.usuarioNombre),
      texto(campo.observaciones),
      texto(campo.identificador),
      texto(campo.plataforma),
      texto(campo.tipoMensaje)};
  grid.AddRow(celdas);
}

/// The number that a text begins with, 0 when there is none.
std::string ValorNumerico(std::string_view texto) {
  texto = Recortar(texto);
  double valor = 0;
  std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  return TextoDe(std::isfinite(valor) ? valor : 0.0);
}

}  // namespace

frmRecepcionFactura::frmRecepcionFactura()
    : Form("frmRecepcionFactura", "Recepción de Factura Electrónica") {
  Disponer();
  txtFechaF.onEnter = [this] { Cargar(); };
  cmdVisado.onClick = [this] {
    Accion("frmRecepcionFactura:cmdVisado_Click", [&] { cmdVisado_Click(); });
  };
  cmdObservaciones.onClick = [this] {
    Accion("frmRecepcionFactura:cmdObservaciones_Click", [&] { cmdObservaciones_Click(); });
  };
  cmdVisualizar.onClick = [this] {
    Accion("frmRecepcionFactura:cmdVisualizar_Click", [&] { cmdVisualizar_Click(); });
  };
  cmdSalir.onClick = [this] { Unload(); };
}

void frmRecepcionFactura::Disponer() {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  SetLayout(Column({
      Aligned({Row({lblProveedor, txtProveedor, lblFechaI, txtFechaI, lblFechaF, txtFechaF})}),
      vsDocs,
      Row({cmdVisado, cmdObservaciones, cmdVisualizar, Space(), cmdSalir}),
  }));
}

void frmRecepcionFactura::OnLoad() {
  Accion("frmRecepcionFactura:Load", [&] {
    const Sesion& sesion = SesionActual();
    txtProveedor.SetSource(SuiteActual().Proveedores(sesion.conexion, sesion.empresa));
    vsDocs.SetColumns(kColumnas);
  });
}

std::string frmRecepcionFactura::Consulta() {
  const Empresa& empresa = EmpresaActual();
  const std::int32_t proveedor = txtProveedor.Code();
  return Sql(
      " SELECT DISTINCT ef.*, p.Nombre AS Prov_Nombre, usu.Nombre AS nombreUsuarioVisado "
      " FROM EDI_Recepcion_Facturas ef "
      " LEFT JOIN Proveedores p"
      " ON p.Cod_Empresa =",
      empresa.EmpresaProveedores(),
      " AND p.codigo = ef.Cod_Proveedor"
      " LEFT JOIN SGD_USUARIOS usu"
      " ON usu.Codigo = ef.Cod_Usuario_Visado"
      " WHERE ef.Cod_Empresa =",
      empresa.CodigoEmpresa(), " AND ef.Fecha BETWEEN ", SqlTexto{txtFechaI.Text()}, " AND ",
      SqlTexto{txtFechaF.Text()}, proveedor >= 1 ? Sql(" AND p.Codigo = ", proveedor) : "",
      " ORDER BY ef.Fecha, ef.Documento");
}

void frmRecepcionFactura::Cargar() {
  Accion("frmRecepcionFactura:Cargar", [&] {
    const auto facturas = ConexionActual().Open(Consulta());
    const ui::RedrawPause pause(vsDocs);
    vsDocs.Reset();
    const Campos campos(*facturas);
    for (; !facturas->Eof(); facturas->MoveNext()) AnadirFila(vsDocs, *facturas, campos);
  });
}

void frmRecepcionFactura::cmdVisado_Click() {
  const int fila = vsDocs.Row();
  if (fila <= 0 || !vsDocs.Cell(fila, kRecibidaUsuario).empty()) return;
  const auto usuario = Entero<std::int16_t>(ParametroTexto("UsuarioActual"));
  const auto rs =
      ConexionActual().Open(Sql("SELECT Nombre FROM SGD_USUARIOS WHERE codigo = ", usuario));
  ConexionActual().Execute(Sql(
      "UPDATE EDI_Recepcion_Facturas SET "
      " Cod_Usuario_Visado = ",
      usuario, " WHERE IdentificadorMsg = ", SqlTexto{vsDocs.Cell(fila, kRecibidaIdentificador)}));
  // The grid keeps what it showed until the database has taken the approval.
  vsDocs.SetCell(fila, kRecibidaUsuario, std::to_string(usuario));
  if (!rs->Eof()) {
    vsDocs.SetCell(fila, kRecibidaUsuarioNombre, rs->GetOrEmpty<std::string_view>("Nombre"));
  }
}

void frmRecepcionFactura::cmdObservaciones_Click() {
  const int fila = vsDocs.Row();
  if (fila <= 0) return;
  const auto editor = std::make_shared<frmEditor_Comentarios>(
      std::string(vsDocs.Cell(fila, kRecibidaObservaciones)));
  editor->Show(ui::ShowMode::kModal, this);
  if (!editor->Aceptado()) return;
  ConexionActual().Execute(
      Sql("UPDATE EDI_Recepcion_Facturas SET "
          " Observ = ",
          SqlTexto{editor->Comentario()},
          " WHERE IdentificadorMsg = ", SqlTexto{vsDocs.Cell(fila, kRecibidaIdentificador)}));
  vsDocs.SetCell(fila, kRecibidaObservaciones, editor->Comentario());
  vsDocs.FitColumn(kRecibidaObservaciones);
}

void frmRecepcionFactura::cmdVisualizar_Click() {
  const int fila = vsDocs.Row();
  if (fila <= 0) return;
  if (EnteroOCero<std::int32_t>(vsDocs.Cell(fila, kRecibidaProveedor)) <= 0) {
    Avisar("Se esperaba código de proveedor.", "¡ Atención !", ui::Icon::kInformation);
    return;
  }
  if (!IntervaloEscrito(txtFechaI, txtFechaF)) return;
  MsgOp(true, "Generando Factura, por favor espere...");
  if (!vsDocs.Cell(fila, kRecibidaIdentificador).empty()) Visualizar(fila);
  MsgOp(false, kMensajeOperacion);
}

void frmRecepcionFactura::Visualizar(int fila) {
  const std::string identificador(vsDocs.Cell(fila, kRecibidaIdentificador));
  const bool vista = VisualizarFactura(
      identificador, EnteroOCero<std::int16_t>(vsDocs.Cell(fila, kRecibidaPlataforma)),
      EnteroOCero<std::int16_t>(vsDocs.Cell(fila, kRecibidaTipoMensaje)), *this);
  if (vista) return;
  Avisar("Error al visualizar la factura: " + ValorNumerico(vsDocs.Cell(fila, kRecibidaDocumento)),
         "¡ Atención !", ui::Icon::kInformation);
}

}  // namespace kvraedi
