#pragma once

#include <cstdint>
#include <memory>

#include "kvraedi/export.h"

namespace kvraedi {

namespace ui {
class Form;
}

/// The operation of the public classes that open a screen. Each object has a screen of its own.
class KVRAEDI_API EntradaPantalla {
 public:
  EntradaPantalla(const EntradaPantalla&) = delete;
  EntradaPantalla& operator=(const EntradaPantalla&) = delete;

  /// Opens the screen, or brings forward the one that is open. `Modal` is 0 or 1; with 1 the call
  /// returns when the screen is closed. `OwnerForm` may be null.
  void Show(std::int16_t Modal, ui::Form* OwnerForm);

 protected:
  /// `crear` makes the screen.
  explicit EntradaPantalla(std::shared_ptr<ui::Form> (*crear)());
  /// Unloads the screen when it is still open; never raises.
  ~EntradaPantalla();

 private:
  struct Pantalla;
  std::unique_ptr<Pantalla> pantalla_;
};

}  // namespace kvraedi
