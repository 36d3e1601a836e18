#include "kvraedi/frmclsFacturacionRecepcion.h"

#include "reception/frmRecepcionFactura.h"

namespace kvraedi {

/// The class's reference to its screen; cleared when the screen unloads.
struct frmclsFacturacionRecepcion::Pantalla {
  std::shared_ptr<frmRecepcionFactura> frmS;
};

frmclsFacturacionRecepcion::frmclsFacturacionRecepcion()
    : pantalla_(std::make_unique<Pantalla>()) {}

frmclsFacturacionRecepcion::~frmclsFacturacionRecepcion() {
  if (pantalla_->frmS) pantalla_->frmS->Unload();
}

void frmclsFacturacionRecepcion::Show(std::int16_t Modal, ui::Form* OwnerForm) {
  auto& frmS = pantalla_->frmS;
  if (!frmS) {
    frmS = std::make_shared<frmRecepcionFactura>();
    frmS->onUnload = [this] { pantalla_->frmS.reset(); };
  }
  const auto form = frmS;
  form->Show(Modal == 0 ? ui::ShowMode::kModeless : ui::ShowMode::kModal, OwnerForm);
}

}  // namespace kvraedi
