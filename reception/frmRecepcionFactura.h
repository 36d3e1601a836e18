#pragma once

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// Columns of the list of received invoices; the ones without a header are hidden keys.
enum ColumnaRecibida : int {
  kRecibidaDocumento,
  kRecibidaFecha,
  kRecibidaProveedor,
  kRecibidaProveedorNombre,
  kRecibidaImporte,
  kRecibidaUsuario,
  kRecibidaUsuarioNombre,
  kRecibidaObservaciones,
  kRecibidaIdentificador,
  kRecibidaPlataforma,
  kRecibidaTipoMensaje,
  kColumnasRecibida
};

/// The list of invoices received from suppliers: approval, comments, viewing.
class frmRecepcionFactura : public ui::Form {
 public:
  frmRecepcionFactura();

  /// Fills the grid for the filters on the screen.
  void Cargar();

 protected:
  void OnLoad() override;

 private:
  void Disponer();
  std::string Consulta();
  void cmdVisado_Click();
  void cmdObservaciones_Click();
  void cmdVisualizar_Click();
  void Visualizar(int fila);

  ui::Label lblFechaI{*this, "lblFechaI", "Fecha Inicial:"};
  ui::DateBox txtFechaI{*this, "txtFechaI"};
  ui::Label lblFechaF{*this, "lblFechaF", "Fecha Final:"};
  ui::DateBox txtFechaF{*this, "txtFechaF"};
  ui::Label lblProveedor{*this, "lblProveedor", "Proveedor:"};
  ui::Picker txtProveedor{*this, "txtProveedor"};
  ui::Grid vsDocs{*this, "vsDocs"};
  ui::Button cmdVisado{*this, "cmdVisado", "&Visado"};
  ui::Button cmdObservaciones{*this, "cmdObservaciones", "&Observaciones"};
  ui::Button cmdVisualizar{*this, "cmdVisualizar", "Vis&ualizar"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
