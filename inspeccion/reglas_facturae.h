#pragma once

#include <string>
#include <string_view>

namespace kvraedi::inspeccion {

/// What the Facturae 3.2.1 schema refuses in the text of an element, in Spanish; "" when it takes
/// it. Elements that this system does not write are taken.
std::string ReparoElemento(std::string_view elemento, std::string_view valor);

/// Where the user puts the value of an element right; "" when it is not kept by the user.
std::string_view LugarDeElemento(std::string_view elemento);

}  // namespace kvraedi::inspeccion
