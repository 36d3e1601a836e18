#pragma once

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// The received files that wait to be classified, newest first.
class frmPdteClasificar : public ui::Form {
 public:
  frmPdteClasificar();

  /// Fills the grid.
  void Cargar();

 protected:
  void OnLoad() override;

 private:
  ui::Grid vsDocs{*this, "vsDocs"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
