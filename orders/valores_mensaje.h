#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"

// Forms of the values in the messages that this folder writes.
namespace kvraedi {

/// The folder below which outgoing messages stand; raises `Error` when the company has none.
std::filesystem::path RaizEnvios();

/// A GLN as messages carry it: without points, 35 characters at most.
std::string GlnMensaje(std::string_view gln);

/// A date as YYYYMMDD, "" when the field is null.
std::string FechaMensaje(const Recordset& rs, std::string_view campo);

/// A number as text, "" unless it is greater than 0.
std::string NumeroPositivo(double valor);

/// A code filled with zeros on the left up to so many digits.
std::string CodigoConCeros(std::int32_t codigo, std::size_t cifras);

/// A text field cut to so many characters, "" when it is null; valid until the row changes.
std::string_view TextoCortado(const Recordset& rs, std::string_view campo, std::size_t caracteres);

}  // namespace kvraedi
