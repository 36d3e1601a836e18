#pragma once

#include <string>

#include "frame/escritor_texto.h"
#include "frame/fila.h"
#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "seres/consultas_invoic.h"

namespace kvraedi::invoic {

/// What the writers work with: the row of the invoice query and the file that is open. Texts may be
/// null in the database; numbers and dates that are written may not.
struct Mensaje {
  Connection& conexion;
  const Empresa& empresa;
  RegionalSettings region;
  const Fila& factura;
  ClaveFactura clave;
  EscritorTexto& fichero;
};

void EscribirRectl(const Mensaje& mensaje, const std::string& identificador,
                   const FechaHora& momento);
void EscribirSincc(const Mensaje& mensaje, bool enviadaAntes);
void EscribirSincp(const Mensaje& mensaje);
void EscribirSinct(const Mensaje& mensaje);
void EscribirSincv(const Mensaje& mensaje);
void EscribirSincd(const Mensaje& mensaje);
void EscribirLineas(const Mensaje& mensaje);
void EscribirSinci(const Mensaje& mensaje);

/// Writes a text as one SINCT or SINCU record: split at every CR, without LF, five pieces at most.
void EscribirTextoLibre(EscritorTexto& fichero, std::string_view tag, std::string_view texto);

/// A number in a message: always with a decimal point.
std::string NumeroMensaje(Currency valor, std::string_view patron);

}  // namespace kvraedi::invoic
