#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/conexion.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::suite {

/// The search window of the pickers: a text, the rows that match it, accept and cancel.
class frmBuscar : public ui::Form {
 public:
  /// Opens the rows for a text; their fields stand in the order of the grid's columns.
  using Consulta = std::function<std::unique_ptr<Recordset>(std::string_view texto)>;

  /// `columnas` must outlive the form.
  frmBuscar(std::string titulo, std::span<const ui::GridColumn> columnas, Consulta consulta);

  /// Shows the window and waits; gives back the cells of the row that the user accepted, none when
  /// the window was cancelled or closed.
  std::vector<std::string> Elegir(std::string_view texto, ui::Form& owner);

 private:
  void OnLoad() override;
  void Buscar();
  void Llenar();
  void Aceptar();

  std::span<const ui::GridColumn> columnas_;
  Consulta consulta_;
  std::vector<std::string> elegida_;

  ui::Label lblTexto{*this, "lblTexto", "Texto o código:"};
  ui::TextBox txtTexto{*this, "txtTexto"};
  ui::Button cmdBuscar{*this, "cmdBuscar", "&Buscar"};
  ui::Grid vsFilas{*this, "vsFilas"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Aceptar"};
  ui::Button cmdCancelar{*this, "cmdCancelar", "&Cancelar"};
};

}  // namespace kvraedi::suite
