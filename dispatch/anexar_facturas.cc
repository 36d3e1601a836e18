#include "dispatch/frmAnexosFactura.h"
#include "dispatch/frmEnvioFactura.h"
#include "frame/accion.h"
#include "frame/numero.h"

namespace kvraedi {
namespace {

/// A date that a cell shows.
FechaHora Fecha(std::string_view celda) {
  const auto fecha = FechaHora::Parse(celda);
  if (celda.empty() || !fecha) ThrowTypeMismatch();
  return *fecha;
}

DocumentoAnexos DocumentoDe(const ui::Grid& lista, int fila) {
  const auto corto = [&](int columna) { return Entero<std::int16_t>(lista.Cell(fila, columna)); };
  const auto largo = [&](int columna) { return Entero<std::int32_t>(lista.Cell(fila, columna)); };
  DocumentoAnexos documento;
  documento.tipo = corto(kTipoNum);
  if (documento.tipo == 0) {
    documento.ejercicio = corto(kEjercicio);
    documento.serie = corto(kSerie);
    documento.codigo = largo(kFactura);
    documento.tipoDoc = corto(kTipoDoc);
  } else {
    documento.almacenFT = corto(kAlmacenFT);
    documento.cajaFT = corto(kCajaFT);
    documento.fechaFT = Fecha(lista.Cell(fila, kFechaFT));
    documento.codigoFT = largo(kCodigoFT);
  }
  return documento;
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
