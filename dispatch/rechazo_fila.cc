#include "dispatch/rechazo_fila.h"

#include "dispatch/fila_facturae.h"
#include "dispatch/frmEnvioFactura.h"
#include "frame/numero.h"

namespace kvraedi {
namespace {

std::string Motivo(const ui::Grid& lista, int fila, std::int32_t cliente, Canal canal) {
  const auto texto = [&](int columna) { return std::string(lista.Cell(fila, columna)); };
  if (Entero<std::int32_t>(texto(kCliente)) != cliente) {
    return "es del cliente " + texto(kCliente) + " y no del cliente indicado, " +
           std::to_string(cliente);
  }
  const bool ticket = Entero<std::int16_t>(texto(kTipoNum)) == kFacturaTicket;
  if (ticket && canal == Canal::kInvoic) {
    return "es una factura de ticket, que no se puede enviar como INVOIC";
  }
  const std::string anio = std::to_string(FechaCelda(texto(kFecha)).year);
  if (!ticket && texto(kEjercicio) != anio) {
    return "su ejercicio, " + texto(kEjercicio) + ", no es el año de su fecha, " + anio;
  }
  return {};
}

}  // namespace

std::string MotivoDeRechazo(const ui::Grid& lista, int fila, std::int32_t cliente, Canal canal) {
  const std::string motivo = Motivo(lista, fila, cliente, canal);
  if (motivo.empty()) return {};
  return std::string("Factura ")
      .append(lista.Cell(fila, kSerie))
      .append("/")
      .append(lista.Cell(fila, kFactura))
      .append(" de ")
      .append(lista.Cell(fila, kFecha))
      .append(": ")
      .append(motivo)
      .append(".");
}

}  // namespace kvraedi
