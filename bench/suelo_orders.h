#pragma once

#include <filesystem>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What taking in a file of orders costs at least: its records split, the same inserts, updates and
/// look-ups prepared on the bare library, one transaction, the file copied and deleted.
void InsertarOrdersSuelo(const BaseSuelo& base, const std::filesystem::path& fichero,
                         const std::filesystem::path& destino);

}  // namespace kvraedi::bench
