#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvraedi {

// A path as a UTF-8 text, and back.

inline std::filesystem::path RutaDe(std::string_view texto) {
  return std::u8string(texto.begin(), texto.end());
}

inline std::string TextoRuta(const std::filesystem::path& ruta) {
  const std::u8string texto = ruta.u8string();
  return {texto.begin(), texto.end()};
}

/// Whether a text names a file of a folder; anything else leads elsewhere.
inline bool EsNombreDeFichero(std::string_view texto) {
  constexpr std::string_view kSeparadores("/\\\0", 3);
  return !texto.empty() && texto != "." && texto != ".." &&
         texto.find_first_of(kSeparadores) == std::string_view::npos;
}

}  // namespace kvraedi
