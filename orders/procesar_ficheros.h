#pragma once

#include <filesystem>

namespace kvraedi {

/// First pass over received orders: reads every file *.dat of the folder Temp below `carpeta` into
/// the staging tables and moves it to OK, one transaction a file; files that are no ORDERS messages
/// go to Error. Raises the first error: the file at hand then stays in Temp, and nothing of it in
/// the tables.
void ProcesarFicheros(const std::filesystem::path& carpeta);

}  // namespace kvraedi
