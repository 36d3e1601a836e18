#include "dispatch/fila_facturae.h"

#include "dispatch/frmEnvioFactura.h"
#include "facturae/documento.h"
#include "facturae/modFactura_E.h"
#include "frame/numero.h"

namespace kvraedi {
namespace {

constexpr std::int16_t kFacturaDirecta = 0;
constexpr std::int16_t kFacturaTicket = 1;
constexpr FechaHora kSinFecha{.year = 1900, .month = 1, .day = 1};

}  // namespace

FechaHora FechaCelda(std::string_view celda) {
  const auto fecha = FechaHora::Parse(celda);
  if (celda.empty() || !fecha) ThrowTypeMismatch();
  return *fecha;
}

void PonerCodigosFacturaE() {
  auto& estado = facturae::Estado();
  estado.tipoEmisor = "EM";
  estado.tipoPersona = "J";
  estado.tipoResidencia = "R";
  estado.tipoDocumento = "FC";
  estado.claseFactura = "OO";
}

bool GenerarFacturaE(const ui::Grid& lista, int fila, bool exportar,
                     const std::string& rutaExportacion, std::int16_t revision) {
  const auto corto = [&](int columna) { return Entero<std::int16_t>(lista.Cell(fila, columna)); };
  const auto largo = [&](int columna) { return Entero<std::int32_t>(lista.Cell(fila, columna)); };

  facturae::Estado().claseFactura = lista.Cell(fila, kGenerada).empty() ? "OO" : "OR";
  const std::int32_t cliente = largo(kCliente);
  if (corto(kTipoNum) == kFacturaDirecta) {
    return FACTURA_E(cliente, FechaCelda(lista.Cell(fila, kFecha)).year, corto(kSerie),
                     largo(kFactura), corto(kTipoDoc), kFacturaDirecta, 0, 0, kSinFecha, 0,
                     exportar, rutaExportacion, revision);
  }
  const FechaHora fecha = FechaCelda(lista.Cell(fila, kFechaFT));
  return FACTURA_E(cliente, fecha.year, 0, 0, 0, kFacturaTicket, corto(kAlmacenFT), corto(kCajaFT),
                   fecha, largo(kCodigoFT), exportar, rutaExportacion, revision);
}

}  // namespace kvraedi
