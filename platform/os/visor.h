#pragma once

#include <filesystem>

namespace kvraedi::os {

/// Starts the desktop's program for a file, detached from this process, without a shell. Raises
/// kErrorFile when the file does not exist or xdg-open cannot be started.
void AbrirConSuPrograma(const std::filesystem::path& fichero);

}  // namespace kvraedi::os
