#pragma once

#include <string>
#include <string_view>

// What is wrong with a value, in Spanish; "" when nothing is.
namespace kvraedi::inspeccion {

std::string_view ReparoNumero(std::string_view valor);
/// Eight digits or twelve, the last of the day and of its time at the end: "20260131". The messages
/// do not agree on the century, which is not judged.
std::string_view ReparoFecha(std::string_view valor);
/// A date of a supplier order, as people write it.
std::string_view ReparoFechaEscrita(std::string_view valor);
/// A global location number: thirteen digits, the last of which follows from the others.
std::string ReparoGln(std::string_view valor);

}  // namespace kvraedi::inspeccion
