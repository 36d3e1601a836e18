#include "kvraedi/frmclsCentrosAdministrativos.h"

#include "facturae/frmCentrosAdm.h"
#include "frame/referencia_pantalla.h"

namespace kvraedi {

frmclsCentrosAdministrativos::frmclsCentrosAdministrativos()
    : EntradaPantalla(NuevaPantalla<frmCentrosAdm, ui::Form>) {}

}  // namespace kvraedi
