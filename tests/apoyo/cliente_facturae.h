#pragma once

#include "tests/apoyo/guion.h"

namespace kvraedi {

/// Moves the customer of the scenario to Facturae, with a centre and the company's certificate.
inline const std::string kClienteFacturae = Guion("apoyo/cliente_facturae.sql");

}  // namespace kvraedi
