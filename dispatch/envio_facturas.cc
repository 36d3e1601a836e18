#include <optional>

#include "dispatch/fila_facturae.h"
#include "dispatch/frmEnvioFactura.h"
#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/formato.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "kvraedi/error.h"
#include "seres/modSeres.h"

namespace kvraedi {
namespace {

void Informar(std::string_view texto) { Avisar(texto, "¡ Atención !", ui::Icon::kInformation); }
void Exigir(std::string_view texto) { Avisar(texto, "¡ Atención !", ui::Icon::kExclamation); }

constexpr std::int16_t kPlataformaSeres = 2;
constexpr std::int16_t kPlataformaFacturae = 3;
constexpr std::int16_t kMensajeInvoic = 1;
constexpr std::int16_t kMensajeCoacsu = 2;
constexpr std::int16_t kMensajeFacturae = 1;
constexpr std::int16_t kClienteEmpresa = 0;

/// How a customer receives invoices.
struct ConfiguracionEnvio {
  std::int16_t plataforma = 0;
  std::int16_t mensaje = 0;
  std::int16_t tipoCliente = 0;
};

std::optional<ConfiguracionEnvio> LeerConfiguracion(std::int32_t cliente) {
  const auto rs =
      ConexionActual().Open(Sql("SELECT edi.Cod_EDIPlat, edi.Cod_EDITipoMsg, c.Tipo"
                                " FROM EDI_TipoMsg edi "
                                " INNER JOIN Clientes c ON c.Cod_EDIPlat_Fra = edi.Cod_EDIPlat"
                                " AND c.Cod_EDITipoMsg_Fra = edi.Cod_EDITipoMsg"
                                " INNER JOIN Empresas e ON e.Emp_Clientes = c.Cod_Empresa"
                                " WHERE c.Codigo = ",
                                cliente, " AND e.Codigo = ", EmpresaActual().CodigoEmpresa()));
  if (rs->Eof()) return std::nullopt;
  return ConfiguracionEnvio{rs->Get<std::int16_t>("Cod_EDIPlat"),
                            rs->Get<std::int16_t>("Cod_EDITipoMsg"), rs->Get<std::int16_t>("Tipo")};
}

}  // namespace

void frmEnvioFactura::cmdAceptar_Click() {
  Accion("frmEnvioFactura:cmdAceptar_Click", [&] {
    if (!EnvioValido()) return;
    const auto configuracion = LeerConfiguracion(txtCliente.Code());
    if (!configuracion) {
      Exigir("Debe definir el tipo de envío para el cliente seleccionado");
      return;
    }
    const auto [plataforma, mensaje, tipoCliente] = *configuracion;
    if (tipoCliente != kClienteEmpresa) {
      Informar("El cliente debe ser de tipo Empresa.");
      txtCliente.SetFocus();
    } else if (plataforma == kPlataformaSeres && mensaje == kMensajeInvoic) {
      EnviarInvoic();
    } else if (plataforma == kPlataformaSeres && mensaje == kMensajeCoacsu) {
      EnviarCoacsu();
    } else if (plataforma == kPlataformaFacturae && mensaje == kMensajeFacturae) {
      EnviarFacturaE();
    } else if (plataforma == kPlataformaSeres || plataforma == kPlataformaFacturae) {
      Exigir("Debe definir el tipo de mensaje de envío para el cliente seleccionado");
    } else {
      Exigir("Debe definir el tipo de plataforma de envío para el cliente seleccionado");
    }
    MsgOp(false, kMensajeOperacion);
  });
}

bool frmEnvioFactura::EnvioValido() {
  if (!txtCliente.Valid()) {
    Informar("Se esperaba código de cliente.");
    txtCliente.Clear();
    txtCliente.SetFocus();
    return false;
  }
  const auto desde = FechaEscrita(txtFechaI.Text());
  const auto hasta = FechaEscrita(txtFechaF.Text());
  if (!desde) {
    Exigir("Se esperaba Fecha Inicial.");
    txtFechaI.SetFocus();
  } else if (!hasta) {
    Exigir("Se esperaba Fecha Final.");
    txtFechaF.SetFocus();
  } else if (*hasta < *desde) {
    Informar("Intervalo de fechas erróneo.");
    txtFechaF.SetFocus();
  } else if (!HaySeleccion()) {
    Exigir("Debe seleccionar al menos una factura");
  } else {
    return true;
  }
  return false;
}

bool frmEnvioFactura::HaySeleccion() const {
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    if (vsDocs.IsSet(fila, kSeleccion)) return true;
  }
  return false;
}

void frmEnvioFactura::EnviarCoacsu() {
  MsgOp(true, "Generando fichero COACSU, por favor espere...");
  const auto cliente = Estrechar<std::int16_t>(txtCliente.Code());
  if (ProcesarFacturasCoacsu(cliente, txtFechaI.Text(), txtFechaF.Text())) {
    Informar("El fichero COACSU se ha generado correctamente.");
  } else {
    Exigir("No se ha podido generar el fichero COACSU.");
  }
}

void frmEnvioFactura::EnviarInvoic() {
  MsgOp(true, "Generando fichero INVOIC, por favor espere...");
  const auto cliente = Estrechar<std::int16_t>(txtCliente.Code());
  EnviarMarcadas(
      [&](int fila) {
        return INVOIC(cliente, Entero<std::int16_t>(vsDocs.Cell(fila, kSerie)),
                      Entero<std::int32_t>(vsDocs.Cell(fila, kFactura)),
                      Entero<std::int16_t>(vsDocs.Cell(fila, kTipoDoc)),
                      FechaCelda(vsDocs.Cell(fila, kFecha)).year);
      },
      "Error al generar la factura INVOIC: ",
      "El/los fichero/s INVOIC se han generado correctamente.");
}

void frmEnvioFactura::EnviarFacturaE() {
  MsgOp(true, "Generando fichero Factura E, por favor espere...");
  PonerCodigosFacturaE();
  EnviarMarcadas([&](int fila) { return GenerarFacturaE(vsDocs, fila, false, "", 0); },
                 "Error al generar la factura: ",
                 "El/los fichero/s de FACTURA E se han generado correctamente.");
}

/// Sends the ticked rows in the order of the list and marks them; the first failure ends it.
void frmEnvioFactura::EnviarMarcadas(const std::function<bool(int fila)>& enviar,
                                     std::string_view fallo, std::string_view exito) {
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    if (!vsDocs.IsSet(fila, kSeleccion)) continue;
    if (!enviar(fila)) {
      Informar(std::string(fallo).append(vsDocs.Cell(fila, kFactura)));
      return;
    }
    vsDocs.SetCell(fila, kGenerada, "X");
    vsDocs.SetCell(fila, kSeleccion, "0");
  }
  Informar(exito);
}

}  // namespace kvraedi
