#pragma once

#include <cstdint>
#include <memory>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

namespace ui {
class Form;
}

/// Entry to the list of issued invoices and ticket invoices that can be sent.
class KVRAEDI_API clsFacturacionEmision : public PropiedadesSesionOdbc {
 public:
  clsFacturacionEmision();
  /// Unloads the screen when it is still open.
  ~clsFacturacionEmision();
  clsFacturacionEmision(const clsFacturacionEmision&) = delete;
  clsFacturacionEmision& operator=(const clsFacturacionEmision&) = delete;

  /// Opens the screen, or brings forward the one that is open. `Modal` is 0 or 1; with 1 the call
  /// returns when the screen is closed. `OwnerForm` may be null.
  void Show(std::int16_t Modal, ui::Form* OwnerForm);

 private:
  struct Pantalla;
  std::unique_ptr<Pantalla> pantalla_;
};

}  // namespace kvraedi
