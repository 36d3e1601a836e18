#pragma once

#include <cstdint>
#include <filesystem>

#include "kvraedi/fichero_log.h"
#include "orders/interrumpidos.h"
#include "orders/tablas_desadv.h"

namespace kvraedi::desadv {

struct ComprasHechas {
  std::int32_t albaranes = 0;
  CompraHecha ultima;
};

/// Makes a purchase out of every staged delivery note, on the session's connection. The settings
/// file names the supplier. Lines of articles that the company does not have are left out and
/// logged. Raises `Error`.
ComprasHechas CrearComprasMini(const Tablas& tablas, const std::filesystem::path& ajustes,
                               FicheroLog& log);

}  // namespace kvraedi::desadv
