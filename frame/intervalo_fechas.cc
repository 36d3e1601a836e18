#include "frame/intervalo_fechas.h"

#include "frame/avisos.h"
#include "frame/formato.h"

namespace kvraedi {
namespace {

bool Rechazar(ui::DateBox& campo, std::string_view texto, ui::Icon icono) {
  Avisar(texto, "¡ Atención !", icono);
  campo.SetFocus();
  return false;
}

}  // namespace

bool IntervaloEscrito(ui::DateBox& inicial, ui::DateBox& final) {
  const auto desde = FechaEscrita(inicial.Text());
  const auto hasta = FechaEscrita(final.Text());
  if (!desde) return Rechazar(inicial, "Se esperaba Fecha Inicial.", ui::Icon::kExclamation);
  if (!hasta) return Rechazar(final, "Se esperaba Fecha Final.", ui::Icon::kExclamation);
  if (*hasta < *desde) {
    return Rechazar(final, "Intervalo de fechas erróneo.", ui::Icon::kInformation);
  }
  return true;
}

}  // namespace kvraedi
