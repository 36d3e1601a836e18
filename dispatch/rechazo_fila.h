#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/ui/grid.h"

namespace kvraedi {

enum class Canal { kInvoic, kFacturae };

/// Why a row of the invoice list must not go out to that customer through that channel, as a
/// sentence that names the invoice; "" when nothing stands against it. Cells that are no keys raise
/// "No coinciden los tipos".
std::string MotivoDeRechazo(const ui::Grid& lista, int fila, std::int32_t cliente, Canal canal);

}  // namespace kvraedi
