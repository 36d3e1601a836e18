#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"

namespace kvraedi::suite {

/// See Suite::LeerIni. A settings file has lines "[section]", "key=value" and, after a semicolon,
/// remarks; of two equal keys of a section the first counts.
std::optional<std::string> LeerIni(Entorno& entorno, const std::filesystem::path& fichero,
                                   std::string_view seccion, std::string_view clave);

}  // namespace kvraedi::suite
