#include "host/cli/pantalla_envio.h"

#include <string>

#include "host/cli/columnas.h"
#include "kvraedi/error.h"

namespace kvraedi::cli {
namespace {

template <class T>
T& Buscar(const ui::Form& form, const char* nombre) {
  auto* const control = dynamic_cast<T*>(form.Find(nombre));
  if (control == nullptr) {
    throw Error(kErrorItemNotFound, "kvraedi",
                "La pantalla " + form.Name() + " no tiene el control " + nombre);
  }
  return *control;
}

}  // namespace

PantallaEnvio::PantallaEnvio(ui::Form& form, const HeadlessToolkit& toolkit)
    : toolkit_(toolkit),
      txtFechaI_(Buscar<ui::DateBox>(form, "txtFechaI")),
      txtFechaF_(Buscar<ui::DateBox>(form, "txtFechaF")),
      txtCliente_(Buscar<ui::Picker>(form, "txtCliente")),
      txtCadena_(Buscar<ui::Picker>(form, "txtCadena")),
      cboEstado_(Buscar<ui::ComboBox>(form, "cboEstado")),
      cboTipo_(Buscar<ui::ComboBox>(form, "cboTipo")),
      vsDocs_(Buscar<ui::Grid>(form, "vsDocs")),
      chkTodas_(Buscar<ui::CheckBox>(form, "chkSelelecion_vsDocs")),
      cmdAceptar_(Buscar<ui::Button>(form, "cmdAceptar")) {}

bool PantallaEnvio::Cargar(const Argumentos& filtros) {
  const std::size_t mensajes = toolkit_.Messages().size();
  const auto sinMensajes = [&] { return toolkit_.Messages().size() == mensajes; };
  txtFechaI_.Type(filtros.desde);
  txtFechaF_.Type(filtros.hasta);
  if (filtros.cliente) txtCliente_.Type(std::to_string(*filtros.cliente));
  txtCadena_.Type(filtros.cadena);
  // A choice in a combo loads the list by itself; Enter is needed only when there is none.
  if (filtros.estado == 0 && filtros.tipo == 0) txtFechaF_.PressEnter();
  if (filtros.estado != 0) cboEstado_.Choose(filtros.estado);
  if (filtros.tipo != 0 && sinMensajes()) cboTipo_.Choose(filtros.tipo);
  return sinMensajes();
}

void PantallaEnvio::Marcar(int fila) { vsDocs_.Click(fila, kSeleccion); }

}  // namespace kvraedi::cli
