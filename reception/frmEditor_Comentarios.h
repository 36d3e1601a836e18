#pragma once

#include <string>

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// The dialog in which the comment on an invoice is written: show it modally, then ask whether it
/// was accepted.
class frmEditor_Comentarios : public ui::Form {
 public:
  explicit frmEditor_Comentarios(std::string comentario);

  bool Aceptado() const { return aceptado_; }
  /// The accepted text, which holds no "'".
  const std::string& Comentario() const { return comentario_; }

 protected:
  void OnLoad() override;

 private:
  void cmdAceptar_Click();

  std::string comentario_;
  bool aceptado_ = false;

  ui::TextArea txtComent{*this, "txtComent"};
  ui::Label lblTeclas{*this, "lblTeclas", "F9: aceptar"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Aceptar"};
  ui::Button cmdCancelar{*this, "cmdCancelar", "&Cancelar"};
};

}  // namespace kvraedi
