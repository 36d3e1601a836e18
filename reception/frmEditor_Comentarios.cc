#include "reception/frmEditor_Comentarios.h"

#include "frame/accion.h"

namespace kvraedi {
namespace {

constexpr int kAncho = 7500;  // twips
constexpr int kTeclaAceptar = 9;

std::string SinComillas(std::string_view texto) {
  std::string resultado;
  for (const char c : texto) {
    if (c == '\'') {
      resultado += "´";
    } else {
      resultado += c;
    }
  }
  return resultado;
}

}  // namespace

frmEditor_Comentarios::frmEditor_Comentarios() : Form("frmEditor_Comentarios", "Observaciones") {
  SetWidth(kAncho);
  SetLayout(ui::Column({txtComent, ui::Row({lblTeclas, ui::Space(), cmdAceptar, cmdCancelar})}));
  txtComent.SetUpperCase(true);
  onFunctionKey = [this](int tecla) {
    if (tecla == kTeclaAceptar) cmdAceptar_Click();
  };
  cmdAceptar.onClick = [this] { cmdAceptar_Click(); };
  cmdCancelar.onClick = [this] { Unload(); };
}

void frmEditor_Comentarios::OnLoad() {
  txtComent.SetText(comentario_);
  txtComent.SetFocus();
}

void frmEditor_Comentarios::cmdAceptar_Click() {
  Accion("frmEditor_Comentarios:cmdAceptar_Click", [&] {
    comentario_ = SinComillas(txtComent.Text());
    aceptado_ = true;
    Unload();
  });
}

}  // namespace kvraedi
