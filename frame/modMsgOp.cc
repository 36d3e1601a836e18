#include "frame/modMsgOp.h"

#include <exception>
#include <memory>

#include "frame/referencia_pantalla.h"
#include "kvraedi/ui/toolkit.h"

namespace kvraedi {
namespace {

constexpr ui::Font kFuenteMedida{"MS Sans Serif", 8, true};
constexpr int kMargenTwips = 2500;

ReferenciaPantalla<frmMsg>& Ventana() {
  static ReferenciaPantalla<frmMsg> ventana(NuevaPantalla<frmMsg>);
  return ventana;
}

/// Takes one step; when it fails, the next one is taken all the same.
template <class Paso>
void Intentar(Paso&& paso) noexcept {
  try {
    paso();
  } catch (const std::exception&) {
    return;
  }
}

void Mostrar(std::string_view mensaje) {
  Intentar([] { ui::CurrentToolkit().SetPointer(ui::Pointer::kHourglass); });
  const auto form = Ventana().Pedir();
  form->Mensaje(std::string(mensaje.empty() ? kMensajeOperacion : mensaje));
  form->RefreshMsg();
  Intentar([&] { form->Show(ui::ShowMode::kModeless); });
  Intentar([&] { ui::CurrentToolkit().Repaint(*form); });
}

void Ocultar() {
  Intentar([] { ui::CurrentToolkit().SetPointer(ui::Pointer::kDefault); });
  const auto form = Ventana().Actual();
  if (form) Intentar([&] { form->Hide(); });
}

}  // namespace

frmMsg::frmMsg() : Form("frmMsg", "") { SetLayout(ui::Column({lblMsg})); }

void frmMsg::RefreshMsg() {
  if (!mensaje_.empty()) lblMsg.SetCaption(mensaje_);
  int ancho = 0;
  Intentar([&] { ancho = ui::CurrentToolkit().TextWidth(kFuenteMedida, mensaje_) + kMargenTwips; });
  SetWidth(ancho);
}

void MsgOp(bool mostrar, std::string_view mensaje) noexcept {
  Intentar([&] {
    if (mostrar) {
      Mostrar(mensaje);
    } else {
      Ocultar();
    }
  });
}

void CerrarMsgOp() noexcept { Ventana().Cerrar(); }

}  // namespace kvraedi
