#pragma once

#include <string_view>

#include "kvraedi/ui/form.h"

namespace kvraedi::cli {

/// The user at the screen frmAnexosFactura.
class PantallaAnexos {
 public:
  /// Raises Error when the form lacks a control.
  explicit PantallaAnexos(ui::Form& form);

  /// The attachments: file name and description.
  const ui::Grid& Lista() const { return vsDocs_; }
  /// Attaches the file that the next file dialog gives.
  void Anadir(std::string_view descripcion);
  /// Removes what has that file name; false when nothing has it.
  bool Quitar(std::string_view nombre);
  void Salir() { cmdSalir_.Press(); }

 private:
  ui::Button& cmdExaminar_;
  ui::TextBox& txtDescripcion_;
  ui::Button& cmdAnexar_;
  ui::Grid& vsDocs_;
  ui::Button& cmdEliminarAnexo_;
  ui::Button& cmdSalir_;
};

}  // namespace kvraedi::cli
