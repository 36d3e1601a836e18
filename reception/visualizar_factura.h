#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// Opens the received invoice with that message identifier in its viewer, modally over `owner`.
/// True when it was shown; every failure gives false.
bool VisualizarFactura(const std::string& identificador, std::int16_t plataforma,
                       std::int16_t tipoMensaje, ui::Form& owner);

}  // namespace kvraedi
