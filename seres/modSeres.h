#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kvraedi {

/// Turns one issued invoice into one INVOIC file of the Seres platform, files it in the folder of
/// its fiscal year below the sending root and records the sending, once. `ejercicio` is the fiscal
/// year. One that another terminal is sending is refused, and so is, when the caller knows it as
/// `pendiente`, one that has a sending by now; otherwise that makes it a repeated one. True when
/// the file is in its place; otherwise the error has been shown.
bool INVOIC(std::int16_t cliente, std::int16_t serie, std::int32_t codigo, std::int16_t tipoDoc,
            std::int16_t ejercicio, bool pendiente = false);

/// The file of all COACSU groups, in the drive's root.
std::filesystem::path FicheroCoacsu();

/// Appends one COACSU group to FicheroCoacsu(): a header, then a message for each summary invoice
/// of the customer in the range of dates, which are texts as typed. True when all was written;
/// otherwise the error has been shown and what was written stays.
bool ProcesarFacturasCoacsu(std::int16_t cliente, const std::string& fechaInicial,
                            const std::string& fechaFinal);

}  // namespace kvraedi
