#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kvraedi::cli {

/// What the command line says of received invoices.
struct DatosRecibida {
  std::optional<std::int32_t> proveedor;
  std::string mensaje;             ///< identifier of the message: names one invoice
  std::string texto;               ///< the comment
  std::optional<std::string> pdf;  ///< the file that is printed to, instead of the printer
};

}  // namespace kvraedi::cli
