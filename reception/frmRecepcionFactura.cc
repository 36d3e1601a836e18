#include "reception/frmRecepcionFactura.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/celda.h"
#include "frame/fila.h"
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

/// The fields that the rows of the list show, in the order of its columns.
constexpr std::string_view kCampos[] = {
    "Documento",           "Fecha",         "Cod_Proveedor",
    "Prov_Nombre",         "Total",         "Cod_Usuario_Visado",
    "nombreUsuarioVisado", "Observ",        "IdentificadorMsg",
    "Cod_EDIPlat",         "Cod_EDITipoMsg"};
static_assert(std::size(kCampos) == kColumnasRecibida);

void AnadirFila(ui::Grid& grid, const Fila& factura) {
  std::array<std::string_view, kColumnasRecibida> celdas;
  for (std::size_t i = 0; i < celdas.size(); ++i) {
    if (i == kRecibidaFecha || i == kRecibidaImporte) continue;
    celdas[i] = factura.GetOrEmpty<std::string_view>(i);
  }
  const std::string fecha = CeldaFecha(factura, std::size_t{kRecibidaFecha});
  const std::string total = CeldaImporte(factura, std::size_t{kRecibidaImporte});
  celdas[kRecibidaFecha] = fecha;
  celdas[kRecibidaImporte] = total;
  if (factura.GetOrEmpty<std::int32_t>(kRecibidaUsuario) == 0) celdas[kRecibidaUsuario] = {};
  grid.AddRow(celdas);
}

/// The number that a text begins with, blanks aside; 0 when there is none.
std::string ValorNumerico(std::string texto) {
  std::erase(texto, ' ');
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
    const Fila factura(*facturas, kCampos);
    for (; !facturas->Eof(); facturas->MoveNext()) AnadirFila(vsDocs, factura);
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
  const auto editor = std::make_shared<frmEditor_Comentarios>();
  editor->EmpresaKestrova(SesionActual().empresa);
  editor->ConexionKestrova(SesionActual().conexion);
  editor->Comentario(std::string(vsDocs.Cell(fila, kRecibidaObservaciones)));
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
  Avisar("Error al visualizar la factura: " +
             ValorNumerico(std::string(vsDocs.Cell(fila, kRecibidaDocumento))),
         "¡ Atención !", ui::Icon::kInformation);
}

}  // namespace kvraedi
