#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "kvraedi/ui/form.h"

namespace kvraedi {

/// A row of EDI_Centros_Administrativos with the name of its country.
struct CentroAdministrativo {
  std::string codigo;
  std::string nombre;
  std::string direccion;
  std::string codigoPostal;
  std::string localidad;
  std::string provincia;
  std::int16_t codPais = 0;
  std::string pais;
  std::string descripcion;
};

/// The dialog in which a centre is written: show it modally, then read what was accepted.
class frmCentrosAdm_Datos : public ui::Form {
 public:
  /// Begins with these values, or empty.
  explicit frmCentrosAdm_Datos(std::optional<CentroAdministrativo> inicial);

  /// What the user accepted; its code is empty when the dialog was cancelled or closed.
  const CentroAdministrativo& Centro() const { return centro_; }

 protected:
  void OnLoad() override;

 private:
  void Disponer();
  void CargarPaises();
  void Mostrar(const CentroAdministrativo& centro);
  void txtCodigoPostal_KeyPress();
  void cmdAceptar_Click();
  bool Completo();

  std::optional<CentroAdministrativo> inicial_;
  CentroAdministrativo centro_;

  ui::Label lblCodigo{*this, "lblCodigo", "Código:"};
  ui::TextBox txtCodigo{*this, "txtCodigo"};
  ui::Label lblNombre{*this, "lblNombre", "Nombre:"};
  ui::TextBox txtNombre{*this, "txtNombre"};
  ui::Label lblDireccion{*this, "lblDireccion", "Dirección:"};
  ui::TextBox txtDireccion{*this, "txtDireccion"};
  ui::Label lblCodigoPostal{*this, "lblCodigoPostal", "Código Postal:"};
  ui::TextBox txtCodigoPostal{*this, "txtCodigoPostal"};
  ui::Label lblLocalidad{*this, "lblLocalidad", "Localidad:"};
  ui::TextBox txtLocalidad{*this, "txtLocalidad"};
  ui::Label lblProvincia{*this, "lblProvincia", "Provincia:"};
  ui::TextBox txtProvincia{*this, "txtProvincia"};
  ui::Label lblCod_Pais{*this, "lblCod_Pais", "País:"};
  ui::ComboBox cboCod_Pais{*this, "cboCod_Pais"};
  ui::Label lblDescripcion{*this, "lblDescripcion", "Descripción:"};
  ui::TextBox txtDescripcion{*this, "txtDescripcion"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Aceptar"};
  ui::Button cmdCancelar{*this, "cmdCancelar", "&Cancelar"};
};

}  // namespace kvraedi
