#include "frame/clsView.h"

#include "frame/frmView.h"

namespace kvraedi {
namespace {

std::shared_ptr<frmView>& Instancia() {
  static std::shared_ptr<frmView> instancia;
  return instancia;
}

}  // namespace

void clsView::Cargar(bool modal, std::int16_t zoom) {
  auto& instancia = Instancia();
  if (!instancia) {
    instancia = std::make_shared<frmView>();
    instancia->onUnload = [] { Instancia().reset(); };
  }
  const auto form = instancia;
  form->Report(informe_);
  form->Zoom(zoom);
  form->OpcionGuardar(true);
  if (form->Loaded()) form->Presentar();
  form->Show(modal ? ui::ShowMode::kModal : ui::ShowMode::kModeless);
}

}  // namespace kvraedi
