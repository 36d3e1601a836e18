#include "platform/suite/fichero_ini.h"

#include <algorithm>

#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

constexpr std::string_view kMarcaUtf8 = "\xEF\xBB\xBF";

std::string_view SinBlancos(std::string_view texto) { return Recortar(texto, " \t\r"); }

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
      enSeccion = MismoNombre(SinBlancos(linea.substr(1, linea.size() - 2)), seccion);
      continue;
    }
    const auto igual = linea.find('=');
    if (!enSeccion || linea.starts_with(';') || igual == std::string_view::npos) continue;
    if (MismoNombre(SinBlancos(linea.substr(0, igual)), clave)) {
      return std::string(SinBlancos(linea.substr(igual + 1)));
    }
  }
  return std::nullopt;
}

}  // namespace kvraedi::suite
