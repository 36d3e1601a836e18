#pragma once

#include <filesystem>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What taking a despatch advice in costs at least: the file is read line by line and the same
/// statements run, prepared on the bare library, in one transaction, over staging tables with an
/// index; then the file is copied and deleted. Records are LIN, QTYLIN in kilos and PCILIN.
void InsertarDesadvSuelo(const BaseSuelo& base, const std::filesystem::path& fichero,
                         const std::filesystem::path& destino);

}  // namespace kvraedi::bench
