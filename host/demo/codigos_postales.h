#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace kvraedi::demo {

/// Calls `visitar` once with each postal code that the demo knows, in no order: those of the
/// capitals of the 52 provinces, of every municipality of the Canary Islands and of other towns.
void RecorrerCodigosPostales(
    const std::function<void(std::int32_t codigo, std::string_view localidad,
                             std::string_view provincia)>& visitar);

}  // namespace kvraedi::demo
