#include "dispatch/comprobacion_envio.h"
#include "dispatch/fila_facturae.h"
#include "dispatch/frmEnvioFactura.h"
#include "dispatch/rechazo_fila.h"
#include "dispatch/resultado_envio.h"
#include "frame/accion.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "seres/modSeres.h"

namespace kvraedi {
namespace {

constexpr std::int16_t kPlataformaSeres = 2;
constexpr std::int16_t kMensajeInvoic = 1;
constexpr std::int16_t kMensajeCoacsu = 2;

}  // namespace

void frmEnvioFactura::cmdAceptar_Click() {
  Accion("frmEnvioFactura:cmdAceptar_Click", [&] {
    ResultadoEnvio& resultado = EmpezarResultadoEnvio();
    const auto configuracion = EnvioComprobado();
    if (!configuracion) return;
    const auto [plataforma, mensaje] = *configuracion;
    if (plataforma == kPlataformaSeres && mensaje == kMensajeInvoic) {
      resultado.completo = EnviarInvoic();
    } else if (plataforma == kPlataformaSeres && mensaje == kMensajeCoacsu) {
      resultado.completo = EnviarCoacsu();
      if (resultado.completo) resultado.resumen = FicheroCoacsu();
    } else if (plataforma == kPlataformaFacturae && mensaje == kMensajeFacturae) {
      resultado.completo = EnviarFacturaE();
    } else if (plataforma == kPlataformaSeres || plataforma == kPlataformaFacturae) {
      Exigir(kFaltaMensaje);
    } else {
      Exigir(kFaltaPlataforma);
    }
    MsgOp(false, kMensajeOperacion);
  });
}

bool frmEnvioFactura::EnviarCoacsu() {
  MsgOp(true, "Generando fichero COACSU, por favor espere...");
  const auto cliente = Estrechar<std::int16_t>(txtCliente.Code());
  const bool generado = ProcesarFacturasCoacsu(cliente, txtFechaI.Text(), txtFechaF.Text());
  if (generado) {
    Informar("El fichero COACSU se ha generado correctamente.");
  } else {
    Exigir("No se ha podido generar el fichero COACSU.");
  }
  return generado;
}

bool frmEnvioFactura::EnviarInvoic() {
  MsgOp(true, "Generando fichero INVOIC, por favor espere...");
  const auto cliente = Estrechar<std::int16_t>(txtCliente.Code());
  return EnviarMarcadas(
      Canal::kInvoic,
      [&](int fila) {
        return INVOIC(cliente, Entero<std::int16_t>(vsDocs.Cell(fila, kSerie)),
                      Entero<std::int32_t>(vsDocs.Cell(fila, kFactura)),
                      Entero<std::int16_t>(vsDocs.Cell(fila, kTipoDoc)),
                      FechaCelda(vsDocs.Cell(fila, kFecha)).year,
                      vsDocs.Cell(fila, kGenerada).empty());
      },
      "Error al generar la factura INVOIC: ",
      "El/los fichero/s INVOIC se han generado correctamente.");
}

bool frmEnvioFactura::EnviarFacturaE() {
  EmpezarFacturaE();
  return EnviarMarcadas(
      Canal::kFacturae, [&](int fila) { return GenerarFacturaE(vsDocs, fila, false, "", 0); },
      "Error al generar la factura: ",
      "El/los fichero/s de FACTURA E se han generado correctamente.");
}

/// Sends the ticked rows in the order of the list and marks them; the first failure, or row that
/// must not be sent, ends it, with false.
bool frmEnvioFactura::EnviarMarcadas(Canal canal, const std::function<bool(int fila)>& enviar,
                                     std::string_view fallo, std::string_view exito) {
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    if (!vsDocs.IsSet(fila, kSeleccion)) continue;
    const std::string rechazo = MotivoDeRechazo(vsDocs, fila, txtCliente.Code(), canal);
    if (!rechazo.empty()) Exigir(rechazo);
    if (!rechazo.empty() || !enviar(fila)) {
      Informar(std::string(fallo).append(vsDocs.Cell(fila, kFactura)));
      return false;
    }
    vsDocs.SetCell(fila, kGenerada, "X");
    vsDocs.SetCell(fila, kSeleccion, "0");
  }
  Informar(exito);
  return true;
}

}  // namespace kvraedi
