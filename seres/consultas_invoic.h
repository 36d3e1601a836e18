#pragma once

#include <cstdint>
#include <string>

namespace kvraedi::invoic {

/// The key of an invoice (`Facturas`).
struct ClaveFactura {
  std::int16_t empresa = 0;
  std::int16_t ejercicio = 0;
  std::int16_t serie = 0;
  std::int32_t codigo = 0;
  std::int16_t tipoDoc = 0;
};

/// The invoice with its customer, company and earlier sending; `cliente` must be the invoice's own.
std::string ConsultaFactura(const ClaveFactura& clave, std::int16_t empresaClientes,
                            std::int16_t cliente);
std::string ConsultaLineas(const ClaveFactura& clave, std::int16_t empresaClientes);
std::string ConsultaImpuestos(const ClaveFactura& clave);
std::string ConsultaVencimientos(const ClaveFactura& clave);
/// A row when the sending of the file is recorded.
std::string ConsultaEnvio(const std::string& fichero);
std::string InsertarEnvio(const ClaveFactura& clave, const std::string& identificador,
                          const std::string& fichero);

}  // namespace kvraedi::invoic
