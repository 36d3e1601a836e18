#include "kvraedi/frmclsPdteClasificar.h"

#include "reception/frmPdteClasificar.h"

namespace kvraedi {

/// The class's reference to its screen; cleared when the screen unloads.
struct frmclsPdteClasificar::Pantalla {
  std::shared_ptr<frmPdteClasificar> frmS;
};

frmclsPdteClasificar::frmclsPdteClasificar() : pantalla_(std::make_unique<Pantalla>()) {}

frmclsPdteClasificar::~frmclsPdteClasificar() {
  if (pantalla_->frmS) pantalla_->frmS->Unload();
}

void frmclsPdteClasificar::Show(std::int16_t Modal, ui::Form* OwnerForm) {
  auto& frmS = pantalla_->frmS;
  if (!frmS) {
    frmS = std::make_shared<frmPdteClasificar>();
    frmS->onUnload = [this] { pantalla_->frmS.reset(); };
  }
  const auto form = frmS;
  form->Show(Modal == 0 ? ui::ShowMode::kModeless : ui::ShowMode::kModal, OwnerForm);
}

}  // namespace kvraedi
