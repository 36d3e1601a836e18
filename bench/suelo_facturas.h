#pragma once

#include <string>
#include <vector>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What the invoice list costs at least: the same statement stepped on the bare library and the
/// texts of every row kept in one block.
std::vector<std::string> ListarSuelo(const BaseSuelo& base);

}  // namespace kvraedi::bench
