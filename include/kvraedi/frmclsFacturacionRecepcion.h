#pragma once

#include "kvraedi/entrada_pantalla.h"
#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Entry to the invoices received from suppliers.
class KVRAEDI_API frmclsFacturacionRecepcion : public PropiedadesSesionOdbc,
                                               public EntradaPantalla {
 public:
  frmclsFacturacionRecepcion();
};

}  // namespace kvraedi
