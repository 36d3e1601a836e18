#pragma once

#include <cstdint>

namespace kvraedi {

/// Turns one issued invoice into one INVOIC file of the Seres platform, files it in the folder of
/// its fiscal year below the sending root and records the sending, once. `ejercicio` is the fiscal
/// year. True when the file is in its place; otherwise the error has been shown.
bool INVOIC(std::int16_t cliente, std::int16_t serie, std::int32_t codigo, std::int16_t tipoDoc,
            std::int16_t ejercicio);

}  // namespace kvraedi
