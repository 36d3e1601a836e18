#include "frame/modMsgOp.h"

#include <exception>
#include <memory>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi {
namespace {

constexpr ui::Font kFuenteMedida{"MS Sans Serif", 8, true};
constexpr int kMargenTwips = 2500;

std::shared_ptr<frmMsg>& Instancia() {
  static std::shared_ptr<frmMsg> instancia;
  return instancia;
}

frmMsg& InstanciaCreada() {
  auto& instancia = Instancia();
  if (!instancia) {
    instancia = std::make_shared<frmMsg>();
    instancia->onUnload = [] { Instancia().reset(); };
  }
  return *instancia;
}

void Mostrar(std::string_view mensaje) {
  auto& toolkit = ui::CurrentToolkit();
  toolkit.SetPointer(ui::Pointer::kHourglass);
  frmMsg& form = InstanciaCreada();
  form.Mensaje(std::string(mensaje.empty() ? kMensajeOperacion : mensaje));
  form.RefreshMsg();
  form.Show(ui::ShowMode::kModeless);
  toolkit.Repaint(form);
}

void Ocultar() {
  ui::CurrentToolkit().SetPointer(ui::Pointer::kDefault);
  if (const auto& instancia = Instancia()) instancia->Hide();
}

}  // namespace

frmMsg::frmMsg() : Form("frmMsg", "") { SetLayout(ui::Column({lblMsg})); }

void frmMsg::RefreshMsg() {
  if (!mensaje_.empty()) lblMsg.SetCaption(mensaje_);
  SetWidth(ui::CurrentToolkit().TextWidth(kFuenteMedida, mensaje_) + kMargenTwips);
}

void MsgOp(bool mostrar, std::string_view mensaje) noexcept {
  try {
    if (mostrar) {
      Mostrar(mensaje);
    } else {
      Ocultar();
    }
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace kvraedi
