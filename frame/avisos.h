#pragma once

#include <string_view>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

/// Shows a message box with one button.
void Avisar(std::string_view texto, std::string_view titulo, ui::Icon icono);

}  // namespace kvraedi
