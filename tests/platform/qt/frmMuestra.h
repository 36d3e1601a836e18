#pragma once

#include <string>
#include <vector>

#include "kvraedi/ui/form.h"

namespace kvraedi::prueba {

/// A modal form that gives a text back.
class frmElegir : public ui::Form {
 public:
  frmElegir();
  std::string elegido;

  ui::TextBox txtValor{*this, "txtValor"};
  ui::Button cmdTomar{*this, "cmdTomar", "&Tomar"};
};

/// A form with every kind of control. Its handlers write what happened to a diary that outlives it.
class frmMuestra : public ui::Form {
 public:
  explicit frmMuestra(std::vector<std::string>& diario);

  /// Columns of vsLineas.
  enum { kMarca, kNumero, kCodigo, kNombre, kClave, kExcluida, kColumnas };
  void AnadirLineas(int cuantas);
  /// The fields, the control in use, the row in use, and how many are marked.
  std::string Retrato() const;

  ui::Label lblNombre{*this, "lblNombre", "Nombre & apellidos:"};
  ui::TextBox txtNombre{*this, "txtNombre"};
  ui::Label lblFecha{*this, "lblFecha", "Fecha:"};
  ui::DateBox txtFecha{*this, "txtFecha"};
  ui::Label lblNumero{*this, "lblNumero", "Número:"};
  ui::NumericBox txtNumero{*this, "txtNumero"};
  ui::Label lblClase{*this, "lblClase", "Clase:"};
  ui::ComboBox cboClase{*this, "cboClase"};
  ui::Label lblCliente{*this, "lblCliente", "Cliente:"};
  ui::Picker txtCliente{*this, "txtCliente"};
  ui::CheckBox chkTodas{*this, "chkTodas", "&Todas"};
  ui::Grid vsLineas{*this, "vsLineas"};
  ui::Label lblEstado{*this, "lblEstado"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Aceptar"};
  ui::Button cmdElegir{*this, "cmdElegir", "&Elegir"};
  ui::Button cmdApagado{*this, "cmdApagado", "Apagado"};
  ui::Button cmdCerrar{*this, "cmdCerrar", "&Cerrar"};

 protected:
  void OnLoad() override;
  void OnUnload() override { diario_.push_back("descargada"); }

 private:
  void Disponer();
  void Escuchar();
  void Aceptar();
  void Elegir();
  void Clic(int fila, int columna);

  std::vector<std::string>& diario_;
};

}  // namespace kvraedi::prueba
