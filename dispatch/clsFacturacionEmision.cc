#include "kvraedi/clsFacturacionEmision.h"

#include "dispatch/frmEnvioFactura.h"
#include "frame/referencia_pantalla.h"

namespace kvraedi {

clsFacturacionEmision::clsFacturacionEmision()
    : EntradaPantalla(NuevaPantalla<frmEnvioFactura, ui::Form>) {}

}  // namespace kvraedi
