#pragma once

#include <string>

#include "kvraedi/clsFacturacionEmision.h"
#include "kvraedi/frmclsCentrosAdministrativos.h"
#include "kvraedi/frmclsFacturacionRecepcion.h"
#include "kvraedi/frmclsPdteClasificar.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::desktop {

/// The main window: the company and a button for each screen of the component.
class frmPrincipal : public ui::Form {
 public:
  frmPrincipal(std::shared_ptr<Connection> connection, std::shared_ptr<Empresa> company,
               const std::string& company_name);

 private:
  clsFacturacionEmision facturacionEmision_;
  frmclsCentrosAdministrativos centrosAdministrativos_;
  frmclsFacturacionRecepcion facturacionRecepcion_;
  frmclsPdteClasificar pdteClasificar_;

  ui::Label lblEmpresa;
  ui::Label lblIndicacion{*this, "lblIndicacion", "Intercambio electrónico de documentos"};
  ui::Button cmdFacturasEmitidas{*this, "cmdFacturasEmitidas", "&Facturas emitidas"};
  ui::Button cmdCentrosAdministrativos{*this, "cmdCentrosAdministrativos",
                                       "&Centros administrativos"};
  ui::Button cmdFacturasRecibidas{*this, "cmdFacturasRecibidas", "Facturas &recibidas"};
  ui::Button cmdPdteClasificar{*this, "cmdPdteClasificar", "&Pendientes de clasificar"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi::desktop
