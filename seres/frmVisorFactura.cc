#include "seres/frmVisorFactura.h"

#include <array>
#include <optional>
#include <string>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/formato.h"
#include "frame/modMsgOp.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "seres/frmVisorFactura_DescLineas.h"

namespace kvraedi {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, kColumnasLinea> kColumnas = {{
    {"Linea", 650, Alignment::kRight},
    {"Código", 1700},
    {"Descripción", 4300},
    {"Cantidad", 1200, Alignment::kRight},
    {"Neto", 1200, Alignment::kRight},
    {"Bruto", 1200, Alignment::kRight},
    {"Dto", 500, Alignment::kCenter},
    {"Importe", 1300, Alignment::kRight},
}};

enum PlataformaEdi : std::int16_t { kPrimera = 1, kSeres = 2, kFacturae = 3, kProveedores = 4 };
enum MensajeSeres : std::int16_t { kInvoic = 1, kCoacsu = 2 };

constexpr int kDecimalesImporte = 2;
constexpr int kDecimalesPrecio = 4;
constexpr int kDecimalesCantidad = 3;
constexpr std::string_view kConDescuento = "+";

}  // namespace

frmVisorFactura::frmVisorFactura() : Form("frmVisorFactura", "Factura recibida") {
  Disponer();
  txtObservaciones.SetReadOnly(true);
  cmdDescLinea.onClick = [this] { cmdDescLinea_Click(); };
  cmdImprimir.onClick = [this] { cmdImprimir_Click(); };
  cmdSalir.onClick = [this] { Unload(); };
}

void frmVisorFactura::Disponer() {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  const ui::Layout documento =
      Aligned({Row({lblTituloMensaje, lblMensaje}), Row({lblTituloTipo, lblTipo}),
               Row({lblTituloNumero, lblNumero}), Row({lblTituloFuncion, lblFuncion}),
               Row({lblTituloFecha, lblFecha})});
  const ui::Layout emisor =
      Aligned({Row({lblTituloGLN, lblGLN}), Row({lblTituloNombre, lblNombre}),
               Row({lblTituloNIF, lblNIF}), Row({lblTituloDireccion, lblDireccion}),
               Row({lblTituloCiudad, Row({lblCiudad, lblTituloCP, lblCP})})});
  SetLayout(Column({
      Row({documento, Space(), emisor, Space()}),
      vsLineas,
      Row({Column({lblTituloDescuentos, vsDescuentos}),
           Column({lblTituloObservaciones, txtObservaciones})}),
      Row({lblTituloNeto, lblNeto, Space(), lblTituloBase, lblBase, Space(), lblTituloImpuestos,
           lblImpuestos, Space(), lblTituloTotal, lblTotal}),
      Row({cmdDescLinea, Space(), cmdImprimir, cmdSalir}),
  }));
}

void frmVisorFactura::OnLoad() {
  Accion("frmVisorFactura:Load", [&] {
    vsLineas.SetColumns(kColumnas);
    vsDescuentos.SetColumns(ColumnasDescuento("Numero"));
    switch (plataforma_) {
      case kSeres:
        if (tipoMensaje_ == kInvoic) {
          LeerFichero();
        } else if (tipoMensaje_ != kCoacsu) {
          Cancelar("La factura electrónica no tiene asignado un tipo de mensaje EDI conocido");
        }
        break;
      case kPrimera:
      case kFacturae:
      case kProveedores:
        break;
      default:
        Cancelar("La factura electrónica no tiene asignada un tipo de plataforma EDI conocida");
    }
  });
}

void frmVisorFactura::OnActivate() { MsgOp(false, kMensajeOperacion); }

void frmVisorFactura::Cancelar(std::string_view texto) {
  Avisar(texto, "Imposible continuar", ui::Icon::kInformation);
  cancelado_ = true;
  Unload();
}

void frmVisorFactura::LeerFichero() {
  std::unique_ptr<FileReader> fichero;
  if (!Accion("frmVisorFactura:LeerFichero",
              [&] { fichero = EntornoActual().OpenForReading(fichero_); })) {
    cancelado_ = true;
    Unload();
    return;
  }
  const ui::RedrawPause lineas(vsLineas);
  const ui::RedrawPause descuentos(vsDescuentos);
  CabeceraRecibida cabecera;
  Accion("frmVisorFactura:LeerFichero", [&] {
    LeerFacturaRecibida(std::move(fichero), TextoRuta(fichero_.filename()), cabecera, *this);
  });
  MostrarCabecera(cabecera);
}

void frmVisorFactura::MostrarCabecera(const CabeceraRecibida& cabecera) {
  const auto importe = [](std::optional<Currency> valor) {
    return valor ? NumeroTexto(*valor, kDecimalesImporte) : std::string();
  };
  if (cabecera.esFactura) lblMensaje.SetCaption("FACTURA");
  lblTipo.SetCaption(std::string(NombreTipoDocumento(cabecera.tipoDocumento)));
  lblNumero.SetCaption(cabecera.numero);
  lblFuncion.SetCaption(std::string(NombreFuncion(cabecera.funcion)));
  lblFecha.SetCaption(cabecera.fecha);
  lblGLN.SetCaption(cabecera.gln);
  lblNombre.SetCaption(cabecera.nombre);
  lblNIF.SetCaption(cabecera.nif);
  lblDireccion.SetCaption(cabecera.direccion);
  lblCiudad.SetCaption(cabecera.localidad);
  lblCP.SetCaption(cabecera.cp);
  lblNeto.SetCaption(importe(cabecera.neto));
  lblBase.SetCaption(importe(cabecera.base));
  lblImpuestos.SetCaption(importe(cabecera.impuestos));
  lblTotal.SetCaption(importe(cabecera.total));
  txtObservaciones.SetText(cabecera.observaciones);
}

void frmVisorFactura::Linea(const LineaRecibida& linea) {
  const std::string numero = std::to_string(vsLineas.Rows());
  if (linea.texto) {
    const std::array<std::string_view, 3> celdas = {numero, "C", linea.descripcion};
    vsLineas.AddRow(celdas);
    return;
  }
  const std::string cantidad = NumeroTexto(linea.unidades, kDecimalesCantidad);
  const std::string neto = NumeroTexto(linea.precioNeto, kDecimalesPrecio);
  const std::string bruto = NumeroTexto(linea.precioBruto, kDecimalesPrecio);
  const std::string importe = NumeroTexto(linea.importe, kDecimalesImporte);
  const std::array<std::string_view, kColumnasLinea> celdas = {
      numero, linea.articulo, linea.descripcion, cantidad, neto, bruto, "", importe};
  vsLineas.AddRow(celdas);
}

void frmVisorFactura::Descuento(const DescuentoRecibido& descuento) {
  AnadirDescuento(vsDescuentos, descuento);
}

void frmVisorFactura::DescuentoLinea(const DescuentoRecibido& descuento) {
  const int fila = vsLineas.Rows() - 1;
  vsLineas.SetCell(fila, kLineaDto, kConDescuento);
  descuentosLinea_.push_back({fila, descuento});
}

void frmVisorFactura::cmdDescLinea_Click() {
  Accion("frmVisorFactura:cmdDescLinea_Click", [&] {
    const int fila = vsLineas.Row();
    if (fila <= 0 || vsLineas.Cell(fila, kLineaDto) != kConDescuento) return;
    std::vector<DescuentoRecibido> descuentos;
    for (const DescuentoDeLinea& entrada : descuentosLinea_) {
      if (entrada.fila == fila) descuentos.push_back(entrada.descuento);
    }
    std::make_shared<frmVisorFactura_DescLineas>(std::move(descuentos))
        ->Show(ui::ShowMode::kModal, this);
  });
}

}  // namespace kvraedi
