#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kvraedi/valor.h"

namespace kvraedi {

/// A number under a pattern such as "0.000", "#0.00" or "000000": the zeros before the point are
/// the least integer digits, those after it the decimals (beyond four they are zeros), rounded half
/// away from zero. `decimal` stands between them in the result. No thousands separator; "-" in
/// front of a negative value that does not round to zero.
std::string FormatearNumero(Currency valor, std::string_view patron, char decimal = '.');

/// A date under a pattern of "yyyy", "yy", "mm", "dd", "hh", "nn" (minutes) and "ss"; anything else
/// stands for itself.
std::string FormatearFecha(const FechaHora& fecha, std::string_view patron);

/// The suite's display texts: a date as dd/mm/yyyy, followed by " h:mm:ss" when it has a time; a
/// number with so many decimals and the decimal sign of the regional settings.
std::string FechaTexto(const FechaHora& fecha);
std::string NumeroTexto(Currency valor, int decimales);

/// A date that the user typed, strictly dd/mm/yyyy; nothing when it is not one.
std::optional<FechaHora> FechaEscrita(std::string_view texto);

/// A value as text: a number plainly, with a point and 15 significant digits at most; a null is "".
std::string TextoDe(const Valor& valor);

/// The first characters of a UTF-8 text, the whole text when it has no more.
std::string_view PrimerosCaracteres(std::string_view texto, std::size_t caracteres);

enum class Alineacion : std::int16_t { kIzquierda = 0, kDerecha = 2 };

/// Fits a UTF-8 text into a field of a fixed-width record in code page 1252, one byte a character:
/// filled with blanks on the far side, cut at the right when it is longer. Line ends and tabs
/// become blanks, characters that the code page lacks "?". Gives back whether the text fitted.
bool FormatearCampo(Alineacion alineacion, std::string_view texto, std::span<char> campo);

}  // namespace kvraedi
