#pragma once

#include <string>

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// Asks for the folder that documents are exported to.
class frmExportar : public ui::Form {
 public:
  frmExportar();

  /// What the user decided; the folder is "" when it was not accepted.
  bool Aceptado() const { return aceptado_; }
  const std::string& Carpeta() const { return carpeta_; }

 private:
  void cmdExaminar_Click();
  void Cerrar(bool aceptado, std::string carpeta);

  bool aceptado_ = false;
  std::string carpeta_;

  ui::Label lblRuta{*this, "lblRuta", "Carpeta:"};
  ui::TextBox txtRuta{*this, "txtRuta"};
  ui::Button cmdExaminar{*this, "cmdExaminar", "E&xaminar"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Aceptar"};
  ui::Button cmdCancelar{*this, "cmdCancelar", "&Cancelar"};
};

}  // namespace kvraedi
