#pragma once

#include "frame/escritor_texto.h"
#include "kvraedi/conexion.h"
#include "kvraedi/valor.h"

namespace kvraedi::coacsu {

/// The writers of the records. Texts may be null in the database; numbers and dates that are
/// written may not.
void EscribirRectl(EscritorTexto& fichero, const FechaHora& momento);
/// SCOAC, SCOAT, SCOAP and SCOAD, from the row of a summary invoice.
void EscribirCabecera(EscritorTexto& fichero, const Recordset& resumen, const FechaHora& hoy);
/// SCOAL, SCOAQ and SCOAA for each row, a delivery line.
void EscribirAlbaranes(EscritorTexto& fichero, Recordset& lineas);

}  // namespace kvraedi::coacsu
