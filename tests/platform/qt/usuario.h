#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi::prueba {

/// Somebody who uses forms: the same steps run on every toolkit. Controls go by their names. What
/// the message boxes said is kept in the order in which they came.
class Usuario {
 public:
  using Pasos = std::function<void(ui::Form&)>;

  virtual ~Usuario() = default;
  virtual ui::Toolkit& Pantallas() = 0;
  /// The open form of that name, or null.
  virtual ui::Form* Ventana(std::string_view nombre) = 0;

  /// Replaces what a field holds and stays in it.
  virtual void Escribe(ui::Form& form, const std::string& campo, const std::string& texto) = 0;
  virtual void Intro(ui::Form& form, const std::string& control) = 0;
  /// A button or a check box.
  virtual void Pulsa(ui::Form& form, const std::string& control) = 0;
  virtual void Elige(ui::Form& form, const std::string& lista, int indice) = 0;
  /// A cell of a grid; row 0 is the header.
  virtual void Celda(ui::Form& form, const std::string& tabla, int fila, int columna) = 0;
  /// The search of a picker.
  virtual void Busca(ui::Form& form, const std::string& campo) = 0;
  virtual void Cierra(ui::Form& form) = 0;

  /// Steps for the next modal show of a form.
  virtual void AlAbrir(const std::string& form, Pasos pasos) = 0;
  /// Answer to the next question; the preset button without one.
  virtual void Responde(ui::Answer respuesta) = 0;

  const std::vector<std::string>& Mensajes() const { return mensajes_; }

 protected:
  void Apunta(const std::string& titulo, const std::string& texto, ui::Icon icono) {
    mensajes_.push_back(titulo + "|" + texto + "|" + std::to_string(static_cast<int>(icono)));
  }

 private:
  std::vector<std::string> mensajes_;
};

}  // namespace kvraedi::prueba
