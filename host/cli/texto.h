#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <string_view>

namespace kvraedi::cli {

/// A text in UTF-8 as JSON writes it, between quotes.
void EscribirTextoJson(std::string_view texto, std::ostream& salida);

/// The path that a UTF-8 text names.
inline std::filesystem::path RutaUtf8(std::string_view texto) {
  return std::u8string(texto.begin(), texto.end());
}

/// Characters of a UTF-8 text.
std::size_t Anchura(std::string_view texto);

}  // namespace kvraedi::cli
