#pragma once

#include "kvraedi/entrada_pantalla.h"
#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Entry to the administrative centres that Facturae documents address.
class KVRAEDI_API frmclsCentrosAdministrativos : public PropiedadesSesionOdbc,
                                                 public EntradaPantalla {
 public:
  frmclsCentrosAdministrativos();
};

}  // namespace kvraedi
