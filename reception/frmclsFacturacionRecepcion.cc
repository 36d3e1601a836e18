#include "kvraedi/frmclsFacturacionRecepcion.h"

#include "frame/referencia_pantalla.h"
#include "reception/frmRecepcionFactura.h"

namespace kvraedi {

frmclsFacturacionRecepcion::frmclsFacturacionRecepcion()
    : EntradaPantalla(NuevaPantalla<frmRecepcionFactura, ui::Form>) {}

}  // namespace kvraedi
