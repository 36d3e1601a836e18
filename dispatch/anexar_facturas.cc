#include "dispatch/fila_facturae.h"
#include "dispatch/frmAnexosFactura.h"
#include "dispatch/frmEnvioFactura.h"
#include "frame/accion.h"
#include "frame/numero.h"

namespace kvraedi {
namespace {

/// The attachments of an invoice go by its fiscal year, whatever its date, readable or not.
facturae::ClaveDocumento DocumentoDe(const ui::Grid& lista, int fila) {
  const auto corto = [&](int columna) { return Entero<std::int16_t>(lista.Cell(fila, columna)); };
  if (corto(kTipoNum) == kFacturaTicket) return ClaveDeFila(lista, fila);
  return {.ejercicio = corto(kEjercicio),
          .serie = corto(kSerie),
          .codigo = Entero<std::int32_t>(lista.Cell(fila, kFactura)),
          .tipoDoc = corto(kTipoDoc)};
}

}  // namespace

void frmEnvioFactura::cmdAnexar_Click() {
  Accion("frmEnvioFactura:cmdAnexar_Click", [&] {
    const int fila = vsDocs.Row();
    if (fila <= 0) return;
    const auto anexos = std::make_shared<frmAnexosFactura>(DocumentoDe(vsDocs, fila));
    anexos->Show(ui::ShowMode::kModal, this);
    if (anexos->Salida()) vsDocs.SetCell(fila, kAnexos, anexos->NumeroAnexos() >= 1 ? "X" : "");
  });
}

}  // namespace kvraedi
