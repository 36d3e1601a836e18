#pragma once

#include "kvraedi/ui/controls.h"

namespace kvraedi {

/// True when both fields hold dates and the first is not after the second. Otherwise the user is
/// told, and the focus goes to the field to mend.
bool IntervaloEscrito(ui::DateBox& inicial, ui::DateBox& final);

}  // namespace kvraedi
