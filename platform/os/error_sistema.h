#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvraedi::os {

/// Spanish reason of a system error number.
std::string MotivoSistema(int codigo);

/// Raises kErrorFile: "<operation> «<path>»: <reason>". `codigo` is the errno of the call that
/// failed.
[[noreturn]] void FalloSistema(std::string_view operacion, const std::filesystem::path& ruta,
                               int codigo);

}  // namespace kvraedi::os
