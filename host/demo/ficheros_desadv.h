#pragma once

#include <filesystem>

namespace kvraedi::demo {

/// Writes the settings file and the despatch advices, good and bad, that wait in the folder Rx of a
/// reception folder, which must exist. Raises `Error`.
void CrearFicherosDesadv(const std::filesystem::path& recepcion);

}  // namespace kvraedi::demo
