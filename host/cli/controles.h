#pragma once

#include <string>

#include "kvraedi/error.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::cli {

/// The control of that name; raises Error when the form has none of that kind.
template <class T>
T& Buscar(const ui::Form& form, const char* nombre) {
  auto* const control = dynamic_cast<T*>(form.Find(nombre));
  if (control == nullptr) {
    throw Error(kErrorItemNotFound, "kvraedi",
                "La pantalla " + form.Name() + " no tiene el control " + nombre);
  }
  return *control;
}

}  // namespace kvraedi::cli
