#pragma once

#include <exception>
#include <string_view>
#include <utility>

namespace kvraedi {

/// Hides the progress message and shows the error in a box with the critical icon.
void MostrarError(std::string_view titulo, const std::exception& error);

/// Runs an action under the component's error handler. An error ends the action and is shown under
/// the title, "form or module:routine"; false tells it.
template <class Body>
bool Accion(std::string_view titulo, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const std::exception& error) {
    MostrarError(titulo, error);
    return false;
  }
}

}  // namespace kvraedi
