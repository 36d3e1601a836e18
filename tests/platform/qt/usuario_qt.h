#pragma once

#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/qt/qt_toolkit.h"

class QMessageBox;

namespace kvraedi::prueba {

/// Somebody who uses forms: sends keys and clicks to the widgets, found by the names of their
/// controls; a timer answers the message boxes and uses the modal windows that come up.
class UsuarioQt {
 public:
  using Pasos = std::function<void(ui::Form&)>;

  UsuarioQt();
  ui::Toolkit& Pantallas() { return toolkit_; }
  /// The open form of that name, or null.
  ui::Form* Ventana(std::string_view nombre) { return toolkit_.OpenForm(nombre); }
  /// Replaces what a field holds and stays in it.
  void Escribe(ui::Form& form, const std::string& campo, const std::string& texto);
  void Intro(ui::Form& form, const std::string& control);
  /// A button or a check box.
  void Pulsa(ui::Form& form, const std::string& control);
  void Elige(ui::Form& form, const std::string& lista, int indice);
  /// A cell of a grid; row 0 is the header.
  void Celda(ui::Form& form, const std::string& tabla, int fila, int columna);
  /// The search of a picker.
  void Busca(ui::Form& form, const std::string& campo);
  void Cierra(ui::Form& form);
  /// Steps for the next modal show of a form.
  void AlAbrir(const std::string& form, Pasos pasos) { pasos_[form].push_back(pasos); }
  /// Answer to the next question; the preset button without one.
  void Responde(ui::Answer respuesta) { respuestas_.push_back(respuesta); }

  /// What the message boxes said, in the order in which they came.
  const std::vector<std::string>& Mensajes() const { return mensajes_; }

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
  std::vector<std::string> mensajes_;
  QTimer timer_;
};

}  // namespace kvraedi::prueba
