#pragma once

#include <string>
#include <utility>

#include "kvraedi/sesion.h"
#include "kvraedi/ui/form.h"

namespace kvraedi {

/// The dialog in which the comment on an invoice is written: show it modally, then ask whether it
/// was accepted.
class frmEditor_Comentarios : public ui::Form, public PropiedadesSesion {
 public:
  frmEditor_Comentarios();

  bool Aceptado() const { return aceptado_; }
  /// The text to begin with; once it was accepted, the one that was written, which holds no "'".
  void Comentario(std::string comentario) { comentario_ = std::move(comentario); }
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
