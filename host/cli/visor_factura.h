#pragma once

#include <iosfwd>

#include "kvraedi/ui/form.h"
#include "platform/headless/headless_toolkit.h"

namespace kvraedi::cli {

/// What the viewer of received invoices shows, with the discounts of each line, as text.
void EscribirFactura(ui::Form& visor, HeadlessToolkit& pantallas, std::ostream& salida);

}  // namespace kvraedi::cli
