#pragma once

#include <functional>

#include "host/cli/argumentos.h"
#include "host/cli/ordenes.h"
#include "kvraedi/ui/form.h"
#include "platform/headless/headless_toolkit.h"

namespace kvraedi::cli {

class SesionCli;

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
  void Exportar(std::int16_t revision);
  /// Opens the attachments of a row; returns when their screen is closed.
  void Anexar(int fila);

 private:
  const HeadlessToolkit& toolkit_;
  ui::DateBox& txtFechaI_;
  ui::DateBox& txtFechaF_;
  ui::Picker& txtCliente_;
  ui::Picker& txtCadena_;
  ui::ComboBox& cboEstado_;
  ui::ComboBox& cboTipo_;
  ui::NumericBox& txtNumRevision_;
  ui::Grid& vsDocs_;
  ui::CheckBox& chkTodas_;
  ui::Button& cmdAceptar_;
  ui::Button& cmdExportar_;
  ui::Button& cmdAnexar_;
};

/// What the user does at the screen; gives back the exit code and may raise.
using PasosEnvio = std::function<int(PantallaEnvio&, SesionCli&)>;

/// Opens a session and its screen frmEnvioFactura for that user. Raises what the steps raise.
int UsarPantallaEnvio(const Argumentos& argumentos, const Salida& salida, const PasosEnvio& pasos);

/// The row that a key names. Raises Fallo when there is none, or one for each of several types.
int FilaDe(const ui::Grid& lista, const ClaveFactura& clave);

}  // namespace kvraedi::cli
