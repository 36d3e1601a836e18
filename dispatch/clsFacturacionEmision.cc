#include "kvraedi/clsFacturacionEmision.h"

#include "dispatch/frmEnvioFactura.h"

namespace kvraedi {

/// The class's reference to its screen; cleared when the screen unloads.
struct clsFacturacionEmision::Pantalla {
  std::shared_ptr<frmEnvioFactura> frmS;
};

clsFacturacionEmision::clsFacturacionEmision() : pantalla_(std::make_unique<Pantalla>()) {}

clsFacturacionEmision::~clsFacturacionEmision() {
  if (pantalla_->frmS) pantalla_->frmS->Unload();
}

void clsFacturacionEmision::Show(std::int16_t Modal, ui::Form* OwnerForm) {
  auto& frmS = pantalla_->frmS;
  if (!frmS) {
    frmS = std::make_shared<frmEnvioFactura>();
    frmS->onUnload = [this] { pantalla_->frmS.reset(); };
  }
  const auto form = frmS;
  form->Show(Modal == 0 ? ui::ShowMode::kModeless : ui::ShowMode::kModal, OwnerForm);
}

}  // namespace kvraedi
