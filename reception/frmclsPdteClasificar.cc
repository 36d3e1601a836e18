#include "kvraedi/frmclsPdteClasificar.h"

#include "frame/referencia_pantalla.h"
#include "reception/frmPdteClasificar.h"

namespace kvraedi {

frmclsPdteClasificar::frmclsPdteClasificar()
    : EntradaPantalla(NuevaPantalla<frmPdteClasificar, ui::Form>) {}

}  // namespace kvraedi
