#pragma once

#include "facturae/frmCentrosAdm_Datos.h"
#include "kvraedi/ui/form.h"

namespace kvraedi {

/// Columns of the grid of centres.
enum ColumnaCentro : int {
  kCentroCodigo,
  kCentroNombre,
  kCentroDireccion,
  kCentroCodigoPostal,
  kCentroLocalidad,
  kCentroProvincia,
  kCentroCodPais,
  kCentroPais,
  kCentroDescripcion,
  kColumnasCentro
};

/// The list of administrative centres: add, modify, delete.
class frmCentrosAdm : public ui::Form {
 public:
  frmCentrosAdm();

 protected:
  void OnLoad() override;

 private:
  void Cargar();
  void PermitirCambios();
  CentroAdministrativo CentroDe(int fila) const;

  void cmdAgregar_Click();
  void cmdModificar_Click();
  void cmdEliminar_Click();

  ui::Grid vsCentros{*this, "vsCentros"};
  ui::Button cmdAgregar{*this, "cmdAgregar", "&Agregar"};
  ui::Button cmdModificar{*this, "cmdModificar", "&Modificar"};
  ui::Button cmdEliminar{*this, "cmdEliminar", "&Eliminar"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
