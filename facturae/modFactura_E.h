#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/valor.h"

namespace kvraedi {

/// Makes the Facturae document of one invoice (`tipo` 0) or ticket invoice (1), has the suite's
/// signing program sign it and, unless `exportar`, deliver it, and records the sending. The issuer
/// settings are those of facturae::Estado(). Fields of the other kind are 0, and their date
/// 01/01/1900.
///
/// `rutaExportacion`, UTF-8 and ended by a separator, and `revision` (0: look it up) are for
/// exporting. A sending of an invoice that another terminal is sending is refused, and so is, when
/// the caller knows it as `pendiente`, one that another has sent and signed into the same folder by
/// now. True when the signing program answered "OK" and, on sending, the record was made.
/// Otherwise a message box or a line of the response log tells why.
bool FACTURA_E(std::int32_t cliente, std::int16_t ejercicio, std::int16_t serie,
               std::int32_t codigo, std::int16_t tipoDoc, std::int16_t tipo, std::int16_t almacenFT,
               std::int16_t cajaFT, const FechaHora& fechaFT, std::int32_t codigoFT, bool exportar,
               const std::string& rutaExportacion, std::int16_t revision, bool pendiente = false);

/// Waits without limit until a process ends; returns at once when there is no such process.
void EsperaProceso(std::int64_t proceso);

}  // namespace kvraedi
