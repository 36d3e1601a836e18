#pragma once

#include "kvraedi/entrada_pantalla.h"
#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Entry to the list of issued invoices and ticket invoices that can be sent.
class KVRAEDI_API clsFacturacionEmision : public PropiedadesSesionOdbc, public EntradaPantalla {
 public:
  clsFacturacionEmision();
};

}  // namespace kvraedi
