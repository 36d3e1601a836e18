#pragma once

#include <QTimer>
#include <QWidget>
#include <deque>
#include <map>

#include "platform/qt/qt_toolkit.h"
#include "tests/platform/qt/usuario.h"

class QMessageBox;

namespace kvraedi::prueba {

/// Sends keys and clicks to the widgets, found by their names; a timer answers the message boxes
/// and uses the modal windows that come up.
class UsuarioQt : public Usuario {
 public:
  UsuarioQt();
  ui::Toolkit& Pantallas() override { return toolkit_; }
  ui::Form* Ventana(std::string_view nombre) override { return toolkit_.OpenForm(nombre); }
  void Escribe(ui::Form& form, const std::string& campo, const std::string& texto) override;
  void Intro(ui::Form& form, const std::string& control) override;
  void Pulsa(ui::Form& form, const std::string& control) override;
  void Elige(ui::Form& form, const std::string& lista, int indice) override;
  void Celda(ui::Form& form, const std::string& tabla, int fila, int columna) override;
  void Busca(ui::Form& form, const std::string& campo) override;
  void Cierra(ui::Form& form) override;
  void AlAbrir(const std::string& form, Pasos pasos) override { pasos_[form].push_back(pasos); }
  void Responde(ui::Answer respuesta) override { respuestas_.push_back(respuesta); }

  /// The form's window, active; null when it has none on the screen.
  static QWidget* Native(const ui::Form& form);
  /// The control's widget in the form's window.
  static QWidget* Widget(const ui::Form& form, const std::string& control);

 private:
  void Vigila();
  void Contesta(QMessageBox& box);
  void Usa(const QWidget& modal);

  QtToolkit toolkit_;
  std::map<std::string, std::deque<Pasos>> pasos_;
  std::deque<ui::Answer> respuestas_;
  QTimer timer_;
};

}  // namespace kvraedi::prueba
