#pragma once

#include <iosfwd>
#include <vector>

#include "host/cli/pantalla_envio.h"

namespace kvraedi::cli {

/// Raises Fallo when the command line does not say which invoices, or says it twice.
void ComprobarSeleccion(const Argumentos& argumentos);

/// Loads the list and ticks the invoices that the command line names. False, and the reasons on the
/// messages, when any of them cannot be ticked. An empty list is let through: what the user does
/// with it is refused with a message that says more.
bool Seleccionar(const Argumentos& argumentos, std::ostream& mensajes, PantallaEnvio& pantalla,
                 SesionCli& sesion);

/// The ticked rows.
std::vector<int> Marcadas(const ui::Grid& lista);

}  // namespace kvraedi::cli
