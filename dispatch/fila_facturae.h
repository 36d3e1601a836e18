#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "facturae/documento.h"
#include "kvraedi/ui/grid.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// The document kind of a ticket invoice, as the list's hidden column has it.
inline constexpr std::int16_t kFacturaTicket = 1;

/// The date that a cell shows; anything else raises "No coinciden los tipos".
FechaHora FechaCelda(std::string_view celda);

/// The document of a row of the invoice list; cells that are no keys raise "No coinciden los tipos"
/// or "Desbordamiento".
facturae::ClaveDocumento ClaveDeFila(const ui::Grid& lista, int fila);

/// Shows the progress message of a batch of Facturae documents.
void MostrarProgresoFacturaE();

/// Begins a batch of Facturae documents: the progress message and the issuer codes of all of them.
void EmpezarFacturaE();

/// Makes the Facturae document of a row of the invoice list, corrective when the row was sent
/// before. The last arguments and the result are those of FACTURA_E.
bool GenerarFacturaE(const ui::Grid& lista, int fila, bool exportar,
                     const std::string& rutaExportacion, std::int16_t revision);

}  // namespace kvraedi
