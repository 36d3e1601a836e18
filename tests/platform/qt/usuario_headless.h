#pragma once

#include "platform/headless/headless_toolkit.h"
#include "tests/platform/qt/usuario.h"

namespace kvraedi::prueba {

class UsuarioHeadless : public Usuario {
 public:
  UsuarioHeadless();
  ui::Toolkit& Pantallas() override { return toolkit_; }
  ui::Form* Ventana(std::string_view nombre) override { return toolkit_.OpenForm(nombre); }
  void Escribe(ui::Form& form, const std::string& campo, const std::string& texto) override;
  void Intro(ui::Form& form, const std::string& control) override;
  void Pulsa(ui::Form& form, const std::string& control) override;
  void Elige(ui::Form& form, const std::string& lista, int indice) override;
  void Celda(ui::Form& form, const std::string& tabla, int fila, int columna) override;
  void Busca(ui::Form& form, const std::string& campo) override;
  void Cierra(ui::Form& form) override;
  void AlAbrir(const std::string& form, Pasos pasos) override { toolkit_.OnShow(form, pasos); }
  void Responde(ui::Answer respuesta) override { toolkit_.QueueAnswer(respuesta); }

 private:
  void Actua(const std::function<void()>& accion);
  /// The focus goes to a control, as a click there moves it.
  void Enfoca(ui::Form& form, ui::Control& control);

  HeadlessToolkit toolkit_;
};

}  // namespace kvraedi::prueba
