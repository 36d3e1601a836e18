#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string_view>

#include "kvraedi/entorno.h"

namespace kvraedi::os {

/// Entorno::Hold on a POSIX system: a lock of the system on the file; `quien` is written into an
/// empty one.
std::unique_ptr<FileHold> Reservar(const std::filesystem::path& ruta, std::string_view quien,
                                   std::chrono::milliseconds espera);

}  // namespace kvraedi::os
