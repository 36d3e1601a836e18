#include "kvraedi/entrada_pantalla.h"

#include "frame/referencia_pantalla.h"

namespace kvraedi {

struct EntradaPantalla::Pantalla : ReferenciaPantalla<ui::Form> {
  using ReferenciaPantalla::ReferenciaPantalla;
};

EntradaPantalla::EntradaPantalla(std::shared_ptr<ui::Form> (*crear)())
    : pantalla_(std::make_unique<Pantalla>(crear)) {}

EntradaPantalla::~EntradaPantalla() = default;

void EntradaPantalla::Show(std::int16_t Modal, ui::Form* OwnerForm) {
  const auto form = pantalla_->Pedir();
  form->Show(Modal == 0 ? ui::ShowMode::kModeless : ui::ShowMode::kModal, OwnerForm);
}

}  // namespace kvraedi
