#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What showing a received invoice costs at least: its bytes split into lines, the fields cut out,
/// and the same cells, each ended by a NUL, kept in one block a row.
std::vector<std::string> VerSuelo(const std::filesystem::path& fichero);

/// What the list of received invoices costs at least: the same statement stepped on the bare
/// library and the texts of every row kept in one block.
std::vector<std::string> RecibidasSuelo(const BaseSuelo& base);

}  // namespace kvraedi::bench
