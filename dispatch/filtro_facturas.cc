#include "dispatch/frmEnvioFactura.h"
#include "frame/avisos.h"
#include "frame/formato.h"

namespace kvraedi {

bool frmEnvioFactura::FiltroValido() {
  const auto rechazar = [&](ui::Control* foco, std::string_view texto) {
    Avisar(texto, "¡Atención!", ui::Icon::kInformation);
    if (foco != nullptr) foco->SetFocus();
    return false;
  };
  if (txtFechaI.Text().empty()) {
    return rechazar(&txtFechaI, "Debe indicar una Fecha Inicial Válida");
  }
  if (txtFechaF.Text().empty()) {
    return rechazar(&txtFechaF, "Debe indicar una Fecha Final Válida");
  }
  const auto desde = FechaEscrita(txtFechaI.Text());
  const auto hasta = FechaEscrita(txtFechaF.Text());
  if (!desde || !hasta) return rechazar(nullptr, "Debe indicar una Fecha Válida");
  if (*desde > *hasta) {
    return rechazar(&txtFechaF, "La Fecha Inicial no puede ser mayor a la Fecha Final");
  }
  return true;
}

FiltroFacturas frmEnvioFactura::Filtro() {
  FiltroFacturas filtro;
  filtro.fechaInicial = txtFechaI.Text();
  filtro.fechaFinal = txtFechaF.Text();
  filtro.estado = static_cast<Estado>(cboEstado.ListIndex());
  filtro.tipo = static_cast<TipoFactura>(cboTipo.ListIndex());
  filtro.cliente = txtCliente.Code();
  for (std::size_t nivel = 0; nivel < kNivelesCadena; ++nivel) {
    filtro.cadena[nivel] = txtCadena.Code(nivel);
  }
  return filtro;
}

}  // namespace kvraedi
