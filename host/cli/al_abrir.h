#pragma once

#include <exception>
#include <functional>
#include <string>

#include "platform/headless/headless_toolkit.h"

namespace kvraedi::cli {

/// Lets a user do `pasos` on the form that `abrir` shows; they are not done when it shows none.
/// Raises what they raise once `abrir` is back: nothing may be thrown through the component.
inline void AlAbrir(HeadlessToolkit& pantallas, const std::string& form,
                    const std::function<void(ui::Form&)>& pasos,
                    const std::function<void()>& abrir) {
  std::exception_ptr error;
  pantallas.OnShow(form, [&](ui::Form& abierta) {
    try {
      pasos(abierta);
    } catch (...) {
      error = std::current_exception();
    }
  });
  abrir();
  if (error) std::rethrow_exception(error);
}

}  // namespace kvraedi::cli
