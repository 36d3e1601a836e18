#include "dispatch/fila_facturae.h"

#include "dispatch/frmEnvioFactura.h"
#include "facturae/modFactura_E.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"

namespace kvraedi {

FechaHora FechaCelda(std::string_view celda) {
  const auto fecha = FechaHora::Parse(celda);
  if (celda.empty() || !fecha) ThrowTypeMismatch();
  return *fecha;
}

facturae::ClaveDocumento ClaveDeFila(const ui::Grid& lista, int fila) {
  const auto corto = [&](int columna) { return Entero<std::int16_t>(lista.Cell(fila, columna)); };
  const auto largo = [&](int columna) { return Entero<std::int32_t>(lista.Cell(fila, columna)); };

  if (corto(kTipoNum) != kFacturaTicket) {
    return {.ejercicio = FechaCelda(lista.Cell(fila, kFecha)).year,
            .serie = corto(kSerie),
            .codigo = largo(kFactura),
            .tipoDoc = corto(kTipoDoc)};
  }
  const FechaHora fecha = FechaCelda(lista.Cell(fila, kFechaFT));
  return {.ejercicio = fecha.year,
          .tipo = kFacturaTicket,
          .almacenFT = corto(kAlmacenFT),
          .cajaFT = corto(kCajaFT),
          .fechaFT = fecha,
          .codigoFT = largo(kCodigoFT)};
}

void MostrarProgresoFacturaE() { MsgOp(true, "Generando fichero Factura E, por favor espere..."); }

void EmpezarFacturaE() {
  MostrarProgresoFacturaE();
  auto& estado = facturae::Estado();
  estado.tipoEmisor = "EM";
  estado.tipoPersona = "J";
  estado.tipoResidencia = "R";
  estado.tipoDocumento = "FC";
  estado.claseFactura = "OO";
}

bool GenerarFacturaE(const ui::Grid& lista, int fila, bool exportar,
                     const std::string& rutaExportacion, std::int16_t revision) {
  const bool pendiente = lista.Cell(fila, kGenerada).empty();
  facturae::Estado().claseFactura = pendiente ? "OO" : "OR";
  const facturae::ClaveDocumento clave = ClaveDeFila(lista, fila);
  return FACTURA_E(Entero<std::int32_t>(lista.Cell(fila, kCliente)), clave.ejercicio, clave.serie,
                   clave.codigo, clave.tipoDoc, clave.tipo, clave.almacenFT, clave.cajaFT,
                   clave.fechaFT, clave.codigoFT, exportar, rutaExportacion, revision, pendiente);
}

}  // namespace kvraedi
