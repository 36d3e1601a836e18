#pragma once

#include <string_view>

namespace kvraedi {

/// The text without the blanks around it.
inline std::string_view Recortar(std::string_view texto) {
  const auto primero = texto.find_first_not_of(' ');
  if (primero == std::string_view::npos) return {};
  return texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
}

}  // namespace kvraedi
