#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi {

/// A text at a place of a record, in code page 1252: `sitio` is the column where it begins, counted
/// from 1, or, negative, the column where it ends.
struct Trozo {
  int sitio;
  std::string_view texto;
};

/// A record of that length, blank but for the pieces.
inline std::string Esperado(std::size_t ancho, std::initializer_list<Trozo> trozos) {
  std::string linea(ancho, ' ');
  for (const auto& [sitio, texto] : trozos) {
    const std::size_t inicio = sitio > 0 ? static_cast<std::size_t>(sitio) - 1
                                         : static_cast<std::size_t>(-sitio) - texto.size();
    linea.replace(inicio, texto.size(), texto);
  }
  return linea;
}

/// The lines of a file whose every line ends in CR LF; a last one that does not is kept with a
/// mark.
inline std::vector<std::string> Lineas(std::string_view contenido) {
  std::vector<std::string> lineas;
  while (!contenido.empty()) {
    const std::size_t fin = contenido.find("\r\n");
    if (fin == std::string_view::npos) {
      lineas.push_back("(sin CR LF) " + std::string(contenido));
      break;
    }
    lineas.emplace_back(contenido.substr(0, fin));
    contenido.remove_prefix(fin + 2);
  }
  return lineas;
}

}  // namespace kvraedi
