#include "kvraedi/frmclsCentrosAdministrativos.h"

#include "facturae/frmCentrosAdm.h"

namespace kvraedi {

/// The class's reference to its screen; cleared when the screen unloads.
struct frmclsCentrosAdministrativos::Pantalla {
  std::shared_ptr<frmCentrosAdm> frmS;
};

frmclsCentrosAdministrativos::frmclsCentrosAdministrativos()
    : pantalla_(std::make_unique<Pantalla>()) {}

frmclsCentrosAdministrativos::~frmclsCentrosAdministrativos() {
  if (pantalla_->frmS) pantalla_->frmS->Unload();
}

void frmclsCentrosAdministrativos::Show(std::int16_t Modal, ui::Form* OwnerForm) {
  auto& frmS = pantalla_->frmS;
  if (!frmS) {
    frmS = std::make_shared<frmCentrosAdm>();
    frmS->onUnload = [this] { pantalla_->frmS.reset(); };
  }
  const auto form = frmS;
  form->Show(Modal == 0 ? ui::ShowMode::kModeless : ui::ShowMode::kModal, OwnerForm);
}

}  // namespace kvraedi
