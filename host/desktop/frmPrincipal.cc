#include "host/desktop/frmPrincipal.h"

namespace kvraedi::desktop {
namespace {

constexpr int kAncho = 6000;  // twips

}  // namespace

frmPrincipal::frmPrincipal(std::shared_ptr<Connection> connection, std::shared_ptr<Empresa> company,
                           const std::string& company_name)
    : Form("frmPrincipal", "Kestrova EDI"), lblEmpresa(*this, "lblEmpresa", company_name) {
  // The session is one record: what one class sets, all of them use.
  facturacionEmision_.EmpresaKestrova(std::move(company));
  facturacionEmision_.ConexionKestrova(std::move(connection));
  cmdFacturasEmitidas.onClick = [this] { facturacionEmision_.Show(0, this); };
  cmdCentrosAdministrativos.onClick = [this] { centrosAdministrativos_.Show(0, this); };
  cmdFacturasRecibidas.onClick = [this] { facturacionRecepcion_.Show(0, this); };
  cmdPdteClasificar.onClick = [this] { pdteClasificar_.Show(0, this); };
  cmdSalir.onClick = [this] { Unload(); };
  SetWidth(kAncho);
  SetLayout(ui::Column({
      lblEmpresa,
      lblIndicacion,
      ui::Space(),
      cmdFacturasEmitidas,
      cmdCentrosAdministrativos,
      cmdFacturasRecibidas,
      cmdPdteClasificar,
      ui::Space(),
      ui::Row({ui::Space(), cmdSalir}),
  }));
}

}  // namespace kvraedi::desktop
