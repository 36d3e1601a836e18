#include "host/cli/pantalla_envio.h"

#include <string>

#include "host/cli/columnas.h"
#include "host/cli/controles.h"
#include "host/cli/fallo.h"
#include "host/cli/sesion_cli.h"
#include "kvraedi/clsFacturacionEmision.h"

namespace kvraedi::cli {
PantallaEnvio::PantallaEnvio(ui::Form& form, const HeadlessToolkit& toolkit)
    : toolkit_(toolkit),
      txtFechaI_(Buscar<ui::DateBox>(form, "txtFechaI")),
      txtFechaF_(Buscar<ui::DateBox>(form, "txtFechaF")),
      txtCliente_(Buscar<ui::Picker>(form, "txtCliente")),
      txtCadena_(Buscar<ui::Picker>(form, "txtCadena")),
      cboEstado_(Buscar<ui::ComboBox>(form, "cboEstado")),
      cboTipo_(Buscar<ui::ComboBox>(form, "cboTipo")),
      txtNumRevision_(Buscar<ui::NumericBox>(form, "txtNumRevision")),
      vsDocs_(Buscar<ui::Grid>(form, "vsDocs")),
      chkTodas_(Buscar<ui::CheckBox>(form, "chkSelelecion_vsDocs")),
      cmdAceptar_(Buscar<ui::Button>(form, "cmdAceptar")),
      cmdExportar_(Buscar<ui::Button>(form, "cmdExportar")),
      cmdAnexar_(Buscar<ui::Button>(form, "cmdAnexar")) {}

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

void PantallaEnvio::Exportar(std::int16_t revision) {
  txtNumRevision_.Type(std::to_string(revision));
  cmdExportar_.Press();
}

void PantallaEnvio::Anexar(int fila) {
  vsDocs_.MoveTo(fila);
  cmdAnexar_.Press();
}

int UsarPantallaEnvio(const Argumentos& argumentos, const Salida& salida, const PasosEnvio& pasos) {
  SesionCli sesion(argumentos, salida.mensajes);
  int codigo = kRechazado;
  sesion.Usar<clsFacturacionEmision>("frmEnvioFactura", [&](ui::Form& form) {
    PantallaEnvio pantalla(form, sesion.Pantallas());
    codigo = pasos(pantalla, sesion);
  });
  return codigo;
}

int FilaDe(const ui::Grid& lista, const ClaveFactura& clave) {
  int encontrada = 0;
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    if (!clave.Coincide(lista, fila)) continue;
    if (encontrada == 0) {
      encontrada = fila;
    } else if (lista.Cell(fila, kTipoDoc) != lista.Cell(encontrada, kTipoDoc)) {
      throw Fallo(kRechazado, "hay más de una factura " + clave.Texto() + "; indique TIPODOC");
    }
  }
  if (encontrada == 0) {
    throw Fallo(kRechazado, "la factura " + clave.Texto() + " no está en la lista");
  }
  return encontrada;
}

}  // namespace kvraedi::cli
