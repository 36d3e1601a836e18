#pragma once

#include "kvraedi/entrada_pantalla.h"
#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Entry to the received files that wait to be classified.
class KVRAEDI_API frmclsPdteClasificar : public PropiedadesSesion, public EntradaPantalla {
 public:
  frmclsPdteClasificar();
};

}  // namespace kvraedi
