#pragma once

#include <cstdint>
#include <string>

#include "facturae/documento.h"
#include "kvraedi/empresa.h"

namespace kvraedi::facturae {

std::string ConsultaTotales(const ClaveDocumento& clave, std::int16_t empresa);
/// Company, customer and the customer's centres, in one row.
std::string ConsultaPartes(std::int16_t empresa, std::int32_t cliente);
std::string ConsultaFactura(const ClaveDocumento& clave, std::int16_t empresa);
/// The last sending of the document by this platform, with its revision.
std::string ConsultaRevision(const ClaveDocumento& clave, std::int16_t empresa);
/// Taxes of an invoice; a ticket has none of its own.
std::string ConsultaImpuestos(const ClaveDocumento& clave, std::int16_t empresa);
std::string ConsultaLineas(const ClaveDocumento& clave, const Empresa& empresa);
std::string ConsultaAnexos(const ClaveDocumento& clave, std::int16_t empresa);

}  // namespace kvraedi::facturae
