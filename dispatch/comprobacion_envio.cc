#include "dispatch/comprobacion_envio.h"

#include "dispatch/frmEnvioFactura.h"
#include "frame/avisos.h"
#include "frame/intervalo_fechas.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi {
namespace {

constexpr std::int16_t kClienteEmpresa = 0;

std::string ConsultaConfiguracion(std::int32_t cliente) {
  return Sql(
      "SELECT edi.Cod_EDIPlat, edi.Cod_EDITipoMsg, c.Tipo"
      " FROM EDI_TipoMsg edi "
      " INNER JOIN Clientes c ON c.Cod_EDIPlat_Fra = edi.Cod_EDIPlat"
      " AND c.Cod_EDITipoMsg_Fra = edi.Cod_EDITipoMsg"
      " INNER JOIN Empresas e ON e.Emp_Clientes = c.Cod_Empresa"
      " WHERE c.Codigo = ",
      cliente, " AND e.Codigo = ", EmpresaActual().CodigoEmpresa());
}

}  // namespace

void Informar(std::string_view texto) { Avisar(texto, kAtencion, ui::Icon::kInformation); }
void Exigir(std::string_view texto) { Avisar(texto, kAtencion, ui::Icon::kExclamation); }

std::optional<ConfiguracionEnvio> frmEnvioFactura::EnvioComprobado() {
  if (!FiltroDeEnvioValido()) return std::nullopt;
  const auto rs = ConexionActual().Open(ConsultaConfiguracion(txtCliente.Code()));
  if (rs->Eof()) {
    Exigir("Debe definir el tipo de envío para el cliente seleccionado");
    return std::nullopt;
  }
  if (rs->Get<std::int16_t>("Tipo") != kClienteEmpresa) {
    Informar("El cliente debe ser de tipo Empresa.");
    txtCliente.SetFocus();
    return std::nullopt;
  }
  return ConfiguracionEnvio{rs->Get<std::int16_t>("Cod_EDIPlat"),
                            rs->Get<std::int16_t>("Cod_EDITipoMsg")};
}

bool frmEnvioFactura::FiltroDeEnvioValido() {
  if (!txtCliente.Valid()) {
    Informar("Se esperaba código de cliente.");
    txtCliente.Clear();
    txtCliente.SetFocus();
    return false;
  }
  if (!IntervaloEscrito(txtFechaI, txtFechaF)) return false;
  if (!HaySeleccion()) {
    Exigir("Debe seleccionar al menos una factura");
    return false;
  }
  return true;
}

bool frmEnvioFactura::HaySeleccion() const {
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    if (vsDocs.IsSet(fila, kSeleccion)) return true;
  }
  return false;
}

}  // namespace kvraedi
