#pragma once

#include <cstdint>
#include <string>

namespace kvraedi::cli {

/// What the command line gives for an export.
struct DatosExportacion {
  std::string carpeta;
  std::int16_t revision = 0;
};

}  // namespace kvraedi::cli
