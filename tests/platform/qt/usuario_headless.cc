#include "tests/platform/qt/usuario_headless.h"

#include <stdexcept>

#include "kvraedi/ui/form.h"

namespace kvraedi::prueba {
namespace {

template <class T>
T& Busco(ui::Form& form, const std::string& nombre) {
  auto* control = dynamic_cast<T*>(form.Find(nombre));
  if (control == nullptr) throw std::logic_error("no hay " + nombre);
  return *control;
}

}  // namespace

UsuarioHeadless::UsuarioHeadless() {
  toolkit_.onMessage = [this](const ui::MessageBox& box) { Apunta(box.title, box.text, box.icon); };
}

void UsuarioHeadless::Actua(const std::function<void()>& accion) {
  try {
    accion();
  } catch (const std::exception& fallo) {
    Apunta("Error", fallo.what(), ui::Icon::kCritical);
  }
}

void UsuarioHeadless::Enfoca(ui::Form& form, ui::Control& control) {
  ui::Control* antes = form.ActiveControl();
  if (antes == &control) return;
  if (antes != nullptr) Actua([&] { antes->Left(); });
  control.Entered();
}

void UsuarioHeadless::Escribe(ui::Form& form, const std::string& campo, const std::string& texto) {
  ui::Control& control = Busco<ui::Control>(form, campo);
  Enfoca(form, control);
  if (auto* picker = dynamic_cast<ui::Picker*>(&control)) return picker->Type(texto);
  Busco<ui::TextBox>(form, campo).Type(texto);
}

void UsuarioHeadless::Intro(ui::Form& form, const std::string& control) {
  auto& destino = Busco<ui::Control>(form, control);
  Enfoca(form, destino);
  if (auto* boton = dynamic_cast<ui::Button*>(&destino)) {
    return Actua([&] { boton->Press(); });
  }
  const bool sigue = !destino.onEnter;
  Actua([&] { destino.PressEnter(); });
  if (sigue) form.FocusNext(destino);
}

void UsuarioHeadless::Pulsa(ui::Form& form, const std::string& control) {
  auto& destino = Busco<ui::Control>(form, control);
  if (!destino.Enabled()) return;
  Enfoca(form, destino);
  Actua([&] {
    if (auto* boton = dynamic_cast<ui::Button*>(&destino)) return boton->Press();
    Busco<ui::CheckBox>(form, control).Toggle();
  });
}

void UsuarioHeadless::Elige(ui::Form& form, const std::string& lista, int indice) {
  auto& combo = Busco<ui::ComboBox>(form, lista);
  Enfoca(form, combo);
  Actua([&] { combo.Choose(indice); });
}

void UsuarioHeadless::Celda(ui::Form& form, const std::string& tabla, int fila, int columna) {
  auto& grid = Busco<ui::Grid>(form, tabla);
  Enfoca(form, grid);
  Actua([&] { grid.Click(fila, columna); });
}

void UsuarioHeadless::Busca(ui::Form& form, const std::string& campo) {
  auto& picker = Busco<ui::Picker>(form, campo);
  Enfoca(form, picker);
  Actua([&] { picker.Search(); });
}

void UsuarioHeadless::Cierra(ui::Form& form) {
  Actua([&] { form.Unload(); });
}

}  // namespace kvraedi::prueba
