#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "platform/headless/headless_toolkit.h"

namespace kvraedi::cli {

/// Queues the steps of a user for the next time that a form is shown. What they raise is kept in
/// `error`, which must outlive the form: nothing may be thrown through the component.
inline void AlAbrir(HeadlessToolkit& pantallas, const std::string& form, std::exception_ptr& error,
                    std::function<void(ui::Form&)> pasos) {
  pantallas.OnShow(form, [&error, pasos = std::move(pasos)](ui::Form& abierta) {
    try {
      pasos(abierta);
    } catch (...) {
      error = std::current_exception();
    }
  });
}

}  // namespace kvraedi::cli
