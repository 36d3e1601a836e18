#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kvraedi {

/// Codes of the customers (`tabla` Clientes) or warehouses (Almacenes) of a company whose GLN is
/// that one when the dots of both, which are ornament, are left out; two at most are told. A blank
/// GLN is nobody's.
std::vector<std::int32_t> CodigosSinPuntos(std::string_view tabla, std::int16_t empresa,
                                           std::string_view gln);

}  // namespace kvraedi
