#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/valor.h"
#include "platform/suite/plantilla_informe.h"

namespace kvraedi::suite {

/// The text as a number, with a point or a comma before its decimals; nothing when it is none.
/// Raises "Desbordamiento".
std::optional<Currency> NumeroDe(std::string_view texto);
/// a * b less a percentage of it, exact, to the decimals that the field shows, half away from zero.
/// Raises "Desbordamiento".
Currency ProductoRebajado(Currency a, Currency b, Currency porcentaje, const CampoInforme& campo);
/// As it is written in Spanish: "-1.234,50". Rounded half away from zero.
std::string NumeroEscrito(Currency valor, int decimales);

/// A value as a report shows it; nothing for one that counts as none. It is read as a number only
/// where the field's format asks for one; a text that is not of the kind that the format wants, or
/// too large for it, stays as it is.
std::optional<std::string> Presentar(const CampoInforme& campo, std::string_view texto);
std::optional<std::string> Presentar(const CampoInforme& campo, Currency numero);

}  // namespace kvraedi::suite
