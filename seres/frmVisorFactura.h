#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "kvraedi/ui/form.h"
#include "seres/factura_recibida.h"

namespace kvraedi {

/// Columns of the grid of lines.
enum ColumnaLinea : int {
  kLineaNumero,
  kLineaCodigo,
  kLineaDescripcion,
  kLineaCantidad,
  kLineaNeto,
  kLineaBruto,
  kLineaDto,
  kLineaImporte,
  kColumnasLinea
};

/// A discount of a line, with the grid row of its line.
struct DescuentoDeLinea {
  int fila = 0;
  DescuentoRecibido descuento;
};

/// Shows one received invoice and prints it. Set what it shows, then show it.
class frmVisorFactura : public ui::Form, private ReceptorFactura {
 public:
  frmVisorFactura();

  void Fichero(std::filesystem::path fichero) { fichero_ = std::move(fichero); }
  /// Platform and message type of the received invoice.
  void Plataforma(std::int16_t plataforma) { plataforma_ = plataforma; }
  void TipoMensaje(std::int16_t tipoMensaje) { tipoMensaje_ = tipoMensaje; }

  /// True when the form refused to show: nothing is known of such a message, or its file cannot be
  /// opened. A file that could be read in part is shown.
  bool Cancelado() const { return cancelado_; }

 protected:
  void OnLoad() override;
  /// The progress message of whoever opened the viewer goes once it shows.
  void OnActivate() override;

 private:
  void Disponer();
  void Cancelar(std::string_view texto);
  void LeerFichero();
  void MostrarCabecera(const CabeceraRecibida& cabecera);

  void Linea(const LineaRecibida& linea) override;
  void Descuento(const DescuentoRecibido& descuento) override;
  void DescuentoLinea(const DescuentoRecibido& descuento) override;

  void cmdDescLinea_Click();

  // Printing
  void cmdImprimir_Click();
  std::string InsertarCabecera(std::string_view terminal) const;
  void GuardarImpresion(std::string_view terminal) const;

  std::filesystem::path fichero_;
  std::int16_t plataforma_ = 0;
  std::int16_t tipoMensaje_ = 0;
  bool cancelado_ = false;
  std::vector<DescuentoDeLinea> descuentosLinea_;

  ui::Label lblTituloMensaje{*this, "lblTituloMensaje", "Mensaje:"};
  ui::Label lblMensaje{*this, "lblMensaje"};
  ui::Label lblTituloTipo{*this, "lblTituloTipo", "Tipo:"};
  ui::Label lblTipo{*this, "lblTipo"};
  ui::Label lblTituloNumero{*this, "lblTituloNumero", "Número:"};
  ui::Label lblNumero{*this, "lblNumero"};
  ui::Label lblTituloFuncion{*this, "lblTituloFuncion", "Estado:"};
  ui::Label lblFuncion{*this, "lblFuncion"};
  ui::Label lblTituloFecha{*this, "lblTituloFecha", "Fecha:"};
  ui::Label lblFecha{*this, "lblFecha"};
  ui::Label lblTituloGLN{*this, "lblTituloGLN", "Emisor:"};
  ui::Label lblGLN{*this, "lblGLN"};
  ui::Label lblTituloNombre{*this, "lblTituloNombre", "Nombre:"};
  ui::Label lblNombre{*this, "lblNombre"};
  ui::Label lblTituloNIF{*this, "lblTituloNIF", "NIF:"};
  ui::Label lblNIF{*this, "lblNIF"};
  ui::Label lblTituloDireccion{*this, "lblTituloDireccion", "Dirección:"};
  ui::Label lblDireccion{*this, "lblDireccion"};
  ui::Label lblTituloCiudad{*this, "lblTituloCiudad", "Ciudad:"};
  ui::Label lblCiudad{*this, "lblCiudad"};
  ui::Label lblTituloCP{*this, "lblTituloCP", "CP:"};
  ui::Label lblCP{*this, "lblCP"};
  ui::Grid vsLineas{*this, "vsLineas"};
  ui::Label lblTituloDescuentos{*this, "lblTituloDescuentos", "Descuentos generales:"};
  ui::Grid vsDescuentos{*this, "vsDescuentos"};
  ui::Label lblTituloObservaciones{*this, "lblTituloObservaciones", "Observaciones:"};
  ui::TextArea txtObservaciones{*this, "txtObservaciones"};
  ui::Label lblTituloNeto{*this, "lblTituloNeto", "Importe neto:"};
  ui::Label lblNeto{*this, "lblNeto"};
  ui::Label lblTituloBase{*this, "lblTituloBase", "Base imponible:"};
  ui::Label lblBase{*this, "lblBase"};
  ui::Label lblTituloImpuestos{*this, "lblTituloImpuestos", "Impuestos:"};
  ui::Label lblImpuestos{*this, "lblImpuestos"};
  ui::Label lblTituloTotal{*this, "lblTituloTotal", "Total:"};
  ui::Label lblTotal{*this, "lblTotal"};
  ui::Button cmdDescLinea{*this, "cmdDescLinea", "&Descuentos de la línea"};
  ui::Button cmdImprimir{*this, "cmdImprimir", "&Imprimir"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
