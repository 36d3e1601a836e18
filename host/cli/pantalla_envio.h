#pragma once

#include "host/cli/argumentos.h"
#include "kvraedi/ui/form.h"
#include "platform/headless/headless_toolkit.h"

namespace kvraedi::cli {

/// The user at the screen frmEnvioFactura.
class PantallaEnvio {
 public:
  /// Raises Error when the form lacks a control.
  PantallaEnvio(ui::Form& form, const HeadlessToolkit& toolkit);

  /// Types the filters and loads the list; false when the component answered with a message.
  bool Cargar(const Argumentos& filtros);
  ui::Grid& Lista() { return vsDocs_; }
  /// True when the customer field holds a customer.
  bool ClienteValido() { return txtCliente_.Valid(); }
  void MarcarTodas() { chkTodas_.Toggle(); }
  void Marcar(int fila);
  void Aceptar() { cmdAceptar_.Press(); }

 private:
  const HeadlessToolkit& toolkit_;
  ui::DateBox& txtFechaI_;
  ui::DateBox& txtFechaF_;
  ui::Picker& txtCliente_;
  ui::Picker& txtCadena_;
  ui::ComboBox& cboEstado_;
  ui::ComboBox& cboTipo_;
  ui::Grid& vsDocs_;
  ui::CheckBox& chkTodas_;
  ui::Button& cmdAceptar_;
};

}  // namespace kvraedi::cli
