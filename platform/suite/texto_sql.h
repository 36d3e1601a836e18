#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/valor.h"

namespace kvraedi::suite {

/// The text without those characters at either end.
std::string_view Recortar(std::string_view text, std::string_view blancos = " ");
/// The lower-case letter of an ASCII capital; any other character as it is.
char Minuscula(char c);
/// Whether two names are the same but for the case of ASCII letters.
bool MismoNombre(std::string_view a, std::string_view b);
/// The text as a whole number of 32 bits; nothing when it is anything else.
std::optional<std::int32_t> Entero(std::string_view text);
/// Condition on a text column: it contains the text, whose wildcards and quotes stand for
/// themselves.
std::string Contiene(std::string_view columna, std::string_view text);
/// The text in single quotes, its own doubled.
std::string Literal(std::string_view text);
/// The date in quotes in the form that every server reads alike: yyyymmdd[ hh:mm:ss].
std::string Literal(const FechaHora& fecha);
/// The number with a point and four decimals.
std::string Literal(Currency valor);

}  // namespace kvraedi::suite
