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

}  // namespace kvraedi
