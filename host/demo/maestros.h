#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/demo/azar.h"
#include "host/demo/datos.h"
#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// A customer as the invoices need it.
struct Cliente {
  std::int32_t codigo = 0;
  std::string nombre;
  std::string nif;
  Regimen regimen = Regimen::kNacional;
  std::int16_t plataforma = kSinCanal;
  std::int16_t mensaje = kSinCanal;
  const LugarDemo* lugar = nullptr;
  std::string_view pais;
};

/// Fills the tables that the invoices refer to. Gives back the customers that invoices are made
/// for: the fixed ones and `generados` more. `certificado` is the path of the certificate of series
/// 4.
std::vector<Cliente> CrearMaestros(Connection& conexion, Azar& azar, std::int32_t generados,
                                   const std::string& certificado);

/// A GLN of the demo: 13 digits with their check digit. `numero` has nine digits at most.
std::string Gln(std::int64_t numero);

}  // namespace kvraedi::demo
