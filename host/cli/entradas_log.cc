#include "host/cli/entradas_log.h"

#include <string_view>
#include <utility>

namespace kvraedi::cli {

EntradasLog::EntradasLog(Entorno& entorno, std::filesystem::path fichero)
    : entorno_(entorno), fichero_(std::move(fichero)), antes_(Leer()) {}

std::string EntradasLog::Leer() const {
  return entorno_.FileExists(fichero_) ? entorno_.ReadFile(fichero_) : std::string();
}

std::string EntradasLog::Nuevas() const {
  const std::string despues = Leer();
  std::string_view antes = antes_;
  while (!despues.starts_with(antes)) {
    const auto fin = antes.find('\n');
    antes.remove_prefix(fin == std::string_view::npos ? antes.size() : fin + 1);
  }
  return despues.substr(antes.size());
}

}  // namespace kvraedi::cli
