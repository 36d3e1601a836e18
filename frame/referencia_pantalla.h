#pragma once

#include <exception>
#include <memory>
#include <utility>

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// A reference to one screen: made when it is first asked for and forgotten when it unloads, so
/// that the next one comes up fresh. The screen is unloaded with the reference.
template <class Pantalla>
class ReferenciaPantalla {
 public:
  using Crear = std::shared_ptr<Pantalla> (*)();

  explicit ReferenciaPantalla(Crear crear) : crear_(crear) {}
  ~ReferenciaPantalla() { Cerrar(); }
  ReferenciaPantalla(const ReferenciaPantalla&) = delete;
  ReferenciaPantalla& operator=(const ReferenciaPantalla&) = delete;

  /// The screen, made if there is none.
  std::shared_ptr<Pantalla> Pedir() {
    if (!pantalla_) {
      pantalla_ = crear_();
      pantalla_->onUnload = [this] { pantalla_.reset(); };
    }
    return pantalla_;
  }
  /// The screen, or null.
  std::shared_ptr<Pantalla> Actual() const { return pantalla_; }

  /// Unloads the screen if there is one; what fails in that is dropped.
  void Cerrar() noexcept {
    const auto pantalla = std::exchange(pantalla_, nullptr);
    try {
      if (pantalla) pantalla->Unload();
    } catch (const std::exception&) {
      return;
    }
  }

 private:
  Crear crear_;
  std::shared_ptr<Pantalla> pantalla_;
};

/// What makes a screen, for the constructor above.
template <class Pantalla, class Base = Pantalla>
std::shared_ptr<Base> NuevaPantalla() {
  return std::make_shared<Pantalla>();
}

}  // namespace kvraedi
