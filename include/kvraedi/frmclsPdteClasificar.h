#pragma once

#include <cstdint>
#include <memory>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

namespace ui {
class Form;
}

/// Entry to the received files that wait to be classified.
class KVRAEDI_API frmclsPdteClasificar : public PropiedadesSesion {
 public:
  frmclsPdteClasificar();
  /// Unloads the screen when it is still open.
  ~frmclsPdteClasificar();
  frmclsPdteClasificar(const frmclsPdteClasificar&) = delete;
  frmclsPdteClasificar& operator=(const frmclsPdteClasificar&) = delete;

  /// Opens the screen, or brings forward the one that is open. `Modal` is 0 or 1; with 1 the call
  /// returns when the screen is closed. `OwnerForm` may be null.
  void Show(std::int16_t Modal, ui::Form* OwnerForm);

 private:
  struct Pantalla;
  std::unique_ptr<Pantalla> pantalla_;
};

}  // namespace kvraedi
