#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi {

/// A record of that length in code page 1252, blank but for its pieces, which a "|" parts: a place
/// and, after a blank, the text there. The place is the column where the text begins, counted from
/// 1, or, negative, the column where it ends.
inline std::string Esperado(std::size_t ancho, std::string_view trozos) {
  std::string linea(ancho, ' ');
  while (!trozos.empty()) {
    const std::string_view trozo = trozos.substr(0, trozos.find('|'));
    trozos.remove_prefix(std::min(trozo.size() + 1, trozos.size()));
    const std::string_view texto = trozo.substr(trozo.find(' ') + 1);
    const int sitio = std::stoi(std::string(trozo));
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
