#include "host/cli/texto.h"

#include <algorithm>
#include <ostream>

namespace kvraedi::cli {

void EscribirTextoJson(std::string_view texto, std::ostream& salida) {
  constexpr std::string_view kHexadecimal = "0123456789abcdef";
  salida << '"';
  for (const char c : texto) {
    const auto codigo = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      salida << '\\' << c;
    } else if (codigo < ' ') {
      salida << "\\u00" << kHexadecimal[codigo >> 4U] << kHexadecimal[codigo & 0xfU];
    } else {
      salida << c;
    }
  }
  salida << '"';
}

std::size_t Anchura(std::string_view texto) {
  return static_cast<std::size_t>(std::count_if(texto.begin(), texto.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U;
  }));
}

}  // namespace kvraedi::cli
