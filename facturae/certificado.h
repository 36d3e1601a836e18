#pragma once

#include <cstdint>
#include <string>

namespace kvraedi::facturae {

struct Certificado {
  std::string ruta;  ///< "" when none is configured
  std::string password;
};

/// The certificate of the series, or the company's when the series has none.
Certificado ElegirCertificado(std::int16_t serie);

}  // namespace kvraedi::facturae
