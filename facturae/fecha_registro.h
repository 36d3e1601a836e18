#pragma once

#include <optional>
#include <string_view>

#include "kvraedi/valor.h"

namespace kvraedi::facturae {

/// The date of registration as receiving services write it: day, month and year, or the year first,
/// with "/", "-", "." or blanks between them, the year of two digits or four, the month a number or
/// a Spanish or English name; or "yyyymmdd". A time may follow, with AM or PM, and then a zone,
/// which is dropped: the time is the one that the service wrote. A month beyond 12 before a day
/// that is not trades places with it. Nothing when the text is no date, or one before 1900.
std::optional<FechaHora> LeerFechaRegistro(std::string_view texto);

}  // namespace kvraedi::facturae
