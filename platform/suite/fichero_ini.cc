#include "platform/suite/fichero_ini.h"

#include <algorithm>

namespace kvraedi::suite {
namespace {

constexpr std::string_view kMarcaUtf8 = "\xEF\xBB\xBF";

std::string_view SinBlancos(std::string_view texto) {
  constexpr std::string_view kBlancos = " \t\r";
  const auto primero = texto.find_first_not_of(kBlancos);
  if (primero == std::string_view::npos) return {};
  return texto.substr(primero, texto.find_last_not_of(kBlancos) - primero + 1);
}

char Minuscula(char letra) {
  return letra >= 'A' && letra <= 'Z' ? static_cast<char>(letra - 'A' + 'a') : letra;
}

bool Iguales(std::string_view uno, std::string_view otro) {
  return std::equal(uno.begin(), uno.end(), otro.begin(), otro.end(),
                    [](char a, char b) { return Minuscula(a) == Minuscula(b); });
}

}  // namespace

std::optional<std::string> LeerIni(Entorno& entorno, const std::filesystem::path& fichero,
                                   std::string_view seccion, std::string_view clave) {
  if (!entorno.FileExists(fichero)) return std::nullopt;
  const std::string bytes = entorno.ReadFile(fichero);
  std::string_view resto = bytes;
  if (resto.starts_with(kMarcaUtf8)) resto.remove_prefix(kMarcaUtf8.size());
  bool enSeccion = false;
  while (!resto.empty()) {
    const auto fin = std::min(resto.find('\n'), resto.size());
    const std::string_view linea = SinBlancos(resto.substr(0, fin));
    resto.remove_prefix(std::min(fin + 1, resto.size()));
    if (linea.starts_with('[') && linea.ends_with(']')) {
      enSeccion = Iguales(SinBlancos(linea.substr(1, linea.size() - 2)), seccion);
      continue;
    }
    const auto igual = linea.find('=');
    if (!enSeccion || linea.starts_with(';') || igual == std::string_view::npos) continue;
    if (Iguales(SinBlancos(linea.substr(0, igual)), clave)) {
      return std::string(SinBlancos(linea.substr(igual + 1)));
    }
  }
  return std::nullopt;
}

}  // namespace kvraedi::suite
