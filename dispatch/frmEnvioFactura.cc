#include "dispatch/frmEnvioFactura.h"

#include <array>

#include "frame/accion.h"
#include "frame/celda.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, kColumnasFactura> kColumnas = {{
    {"", 400, Alignment::kCenter, false, true},
    {"GN", 450, Alignment::kCenter},
    {"S", 450, Alignment::kRight},
    {"Factura", 1000, Alignment::kRight},
    {"Fecha", 1250, Alignment::kCenter},
    {"Cliente", 850, Alignment::kRight},
    {"Cliente", 3300},
    {"Almacén", 600, Alignment::kRight},
    {"Almacén", 2500},
    {"Importe", 1300, Alignment::kRight},
    {"", 0, Alignment::kLeft, true},
    {"No Enviar", 1000, Alignment::kCenter, false, true},
    {"", 0, Alignment::kLeft, true},
    {"Anexos", 800, Alignment::kCenter},
    {"Tipo", 550, Alignment::kCenter},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
}};

/// Where the list's columns stand in its recordset, looked up once for all rows.
struct Campos {
  explicit Campos(const Recordset& rs)
      : tipo(rs.Field("Tipo")),
        serie(rs.Field("Serie")),
        codigo(rs.Field("Codigo")),
        fecha(rs.Field("fecha")),
        cliente(rs.Field("Cliente")),
        clienteNombre(rs.Field("Cli_Nombre")),
        almacen(rs.Field("Almacen")),
        almacenNombre(rs.Field("Alm_Nombre")),
        total(rs.Field("Total")),
        tipoDoc(rs.Field("TipoDoc")),
        excluir(rs.Field("ExcluirEDI")),
        ejercicio(rs.Field("Cod_Ejercicio")),
        enviada(rs.Field("EDI_Tx")),
        anexos(rs.Field("anexos")),
        almacenFT(rs.Field("Cod_Almacen_FT")),
        cajaFT(rs.Field("Caja_FT")),
        fechaFT(rs.Field("Fecha_FT")),
        codigoFT(rs.Field("Codigo_FT")) {}

  int tipo, serie, codigo, fecha, cliente, clienteNombre, almacen, almacenNombre, total, tipoDoc,
      excluir, ejercicio, enviada, anexos, almacenFT, cajaFT, fechaFT, codigoFT;
};

void AnadirFila(ui::Grid& grid, const Recordset& rs, const Campos& campo) {
  const auto texto = [&](int columna) { return rs.GetOrEmpty<std::string_view>(columna); };
  const auto marca = [](bool puesta) { return std::string_view(puesta ? "X" : ""); };
  const bool directa = rs.GetOrEmpty<std::int16_t>(campo.tipo) == 0;
  const std::string fecha = CeldaFecha(rs, campo.fecha);
  const std::string fechaFT = directa ? std::string() : CeldaFecha(rs, campo.fechaFT);
  const std::string total = CeldaImporte(rs, campo.total);
  const std::array<std::string_view, kColumnasFactura> celdas = {
      "0",
      marca(rs.GetOrEmpty<std::int32_t>(campo.enviada) > 0),
      texto(campo.serie),
      texto(campo.codigo),
      fecha,
      texto(campo.cliente),
      texto(campo.clienteNombre),
      texto(campo.almacen),
      texto(campo.almacenNombre),
      total,
      texto(campo.tipoDoc),
      rs.GetOrEmpty<bool>(campo.excluir) ? "1" : "0",
      texto(campo.ejercicio),
      marca(rs.GetOrEmpty<std::int32_t>(campo.anexos) > 0),
      directa ? "FD" : "FT",
      texto(campo.tipo),
      texto(campo.almacenFT),
      texto(campo.cajaFT),
      fechaFT,
      texto(campo.codigoFT)};
  grid.AddRow(celdas);
}

std::string ActualizarExclusion(const ui::Grid& grid, int fila, std::string_view valor) {
  const auto numero = [&](int columna) { return Entero<std::int32_t>(grid.Cell(fila, columna)); };
  const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
  if (numero(kTipoNum) == 0) {
    return Sql(
        "UPDATE Facturas"
        " SET ExcluirEDI = ",
        valor, " WHERE Cod_Empresa = ", empresa, "   AND Cod_Ejercicio = ", numero(kEjercicio),
        "   AND Serie = ", numero(kSerie), "   AND Codigo = ", numero(kFactura),
        "   AND TipoDoc = ", numero(kTipoDoc));
  }
  return Sql(
      "UPDATE TPV_Tickets_Factura"
      " SET ExcluirEDI = ",
      valor, " WHERE Cod_Empresa = ", empresa, "   AND Cod_Almacen = ", numero(kAlmacenFT),
      "   AND Caja = ", numero(kCajaFT), "   AND Fecha = ", SqlTexto{grid.Cell(fila, kFechaFT)},
      "   AND Codigo = ", numero(kCodigoFT));
}

}  // namespace

frmEnvioFactura::frmEnvioFactura() : Form("frmEnvioFactura", "Generación de Factura Electrónica") {
  Disponer();
  Escuchar();
}

void frmEnvioFactura::Disponer() {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  SetLayout(Column({
      Aligned({Row({lblCliente, txtCliente, lblFechaI, txtFechaI, lblFechaF, txtFechaF}),
               Row({lblCadena, txtCadena, lblEstado, cboEstado, lblTipo, cboTipo}),
               Row({lblPlataformaEDI, lblPlataforma, lblNumRevision, txtNumRevision})}),
      chkSelelecion_vsDocs,
      vsDocs,
      Row({Space(), cmdAceptar, cmdExportar, cmdAnexar, cmdCancelar}),
  }));
}

void frmEnvioFactura::Escuchar() {
  txtFechaF.onEnter = [this] { Cargar(); };
  for (ui::ComboBox* combo : {&cboEstado, &cboTipo}) {
    combo->onClick = [this] {
      if (cargado_) Cargar();
    };
    combo->onEnter = [this, combo] { FocusNext(*combo); };
  }
  vsDocs.onClick = [this](int fila, int columna) { vsDocs_Click(fila, columna); };
  chkSelelecion_vsDocs.onClick = [this] { chkSelelecion_vsDocs_Click(); };
  cmdAceptar.onClick = [this] { cmdAceptar_Click(); };
  cmdExportar.onClick = [this] { cmdExportar_Click(); };
  cmdAnexar.onClick = [this] { cmdAnexar_Click(); };
  cmdCancelar.onClick = [this] { Unload(); };
}

void frmEnvioFactura::OnLoad() {
  for (const char* estado : {"Todos", "Generadas", "Pendientes"}) cboEstado.AddItem(estado);
  for (const char* tipo : {"Todos", "F.Directa", "F.Ticket"}) cboTipo.AddItem(tipo);
  cboEstado.SetListIndex(0);
  cboTipo.SetListIndex(0);
  vsDocs.SetColumns(kColumnas);
  Accion("frmEnvioFactura:Load", [&] {
    const Sesion& sesion = SesionActual();
    txtCliente.SetSource(SuiteActual().Clientes(sesion.conexion, sesion.empresa));
    txtCadena.SetSource(SuiteActual().Cadenas(sesion.conexion, sesion.empresa));
  });
  cargado_ = true;
}

void frmEnvioFactura::Cargar() {
  Accion("frmEnvioFactura:Cargar", [&] {
    if (!FiltroValido()) return;
    MsgOp(true, kMensajeOperacion);
    const Empresa& empresa = EmpresaActual();
    const auto facturas = ConexionActual().Open(
        ConsultaFacturas(Filtro(), empresa.CodigoEmpresa(), empresa.EmpresaClientes()));
    Llenar(*facturas);
    facturas->Close();
    MsgOp(false, kMensajeOperacion);
  });
}

void frmEnvioFactura::Llenar(Recordset& facturas) {
  const ui::RedrawPause pause(vsDocs);
  vsDocs.Reset();
  std::string plataforma = "/";
  if (txtCliente.Code() > 0 && !facturas.Eof()) {
    plataforma = facturas.GetOrEmpty<std::string>("nombrePlat") + "/" +
                 facturas.GetOrEmpty<std::string>("nombreMsg");
  }
  lblPlataforma.SetCaption(plataforma);
  const Campos campos(facturas);
  for (; !facturas.Eof(); facturas.MoveNext()) AnadirFila(vsDocs, facturas, campos);
}

void frmEnvioFactura::vsDocs_Click(int fila, int columna) {
  if (fila <= 0) return;
  Accion("frmEnvioFactura:Cargar", [&] {
    if (columna == kSeleccion) AlternarSeleccion(fila);
    if (columna == kNoEnviar) AlternarExclusion(fila);
  });
}

void frmEnvioFactura::AlternarSeleccion(int fila) {
  const bool marcar = !vsDocs.IsSet(fila, kSeleccion) && !vsDocs.IsSet(fila, kNoEnviar);
  vsDocs.SetCell(fila, kSeleccion, marcar ? "1" : "0");
}

void frmEnvioFactura::AlternarExclusion(int fila) {
  const std::string_view valor = vsDocs.IsSet(fila, kNoEnviar) ? "0" : "1";
  ConexionActual().Execute(ActualizarExclusion(vsDocs, fila, valor));
  vsDocs.SetCell(fila, kNoEnviar, valor);
  if (valor == "1") vsDocs.SetCell(fila, kSeleccion, "0");
}

void frmEnvioFactura::chkSelelecion_vsDocs_Click() {
  const bool todas = chkSelelecion_vsDocs.Value();
  const ui::RedrawPause pause(vsDocs);
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    const bool apta = vsDocs.Cell(fila, kGenerada) != "X" && !vsDocs.IsSet(fila, kNoEnviar);
    vsDocs.SetCell(fila, kSeleccion, todas && apta ? "1" : "0");
  }
}

}  // namespace kvraedi
