#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/valor.h"

namespace kvraedi::suite {

std::string_view Recortar(std::string_view text);
/// The text as a whole number of 32 bits; nothing when it is anything else.
std::optional<std::int32_t> Entero(std::string_view text);
/// Condition on a text column: it contains the text, whose wildcards and quotes stand for
/// themselves.
std::string Contiene(std::string_view columna, std::string_view text);
/// The text in single quotes, its own doubled.
std::string Literal(std::string_view text);
/// The number with a point and four decimals.
std::string Literal(Currency valor);

}  // namespace kvraedi::suite
