#include "frame/clsView.h"

#include "frame/frmView.h"
#include "frame/referencia_pantalla.h"

namespace kvraedi {
namespace {

ReferenciaPantalla<frmView>& VistaPrevia() {
  static ReferenciaPantalla<frmView> vista(NuevaPantalla<frmView>);
  return vista;
}

}  // namespace

void clsView::Cargar(bool modal, std::int16_t zoom) {
  const auto form = VistaPrevia().Pedir();
  form->Report(informe_);
  form->Zoom(zoom);
  form->OpcionGuardar(true);
  if (form->Loaded()) form->Presentar();
  form->Show(modal ? ui::ShowMode::kModal : ui::ShowMode::kModeless);
}

void CerrarVistaPrevia() noexcept { VistaPrevia().Cerrar(); }

}  // namespace kvraedi
