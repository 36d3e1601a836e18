#pragma once

#include <array>
#include <string>
#include <vector>

#include "kvraedi/ui/form.h"
#include "seres/factura_recibida.h"

namespace kvraedi {

/// Columns of the grids of discounts.
enum ColumnaDescuento : int {
  kDescuentoNumero,
  kDescuentoIndicador,
  kDescuentoPorcentaje,
  kDescuentoImporte,
  kDescuentoTipo,
  kColumnasDescuento
};

/// Their columns; `numero` is the header of the first, a literal.
std::array<ui::GridColumn, kColumnasDescuento> ColumnasDescuento(std::string_view numero);

/// The cells of a discount, in these columns.
std::array<std::string, kColumnasDescuento> CeldasDescuento(const DescuentoRecibido& descuento);

void AnadirDescuento(ui::Grid& grid, const DescuentoRecibido& descuento);

/// The discounts of one line of a received invoice.
class frmVisorFactura_DescLineas : public ui::Form {
 public:
  explicit frmVisorFactura_DescLineas(std::vector<DescuentoRecibido> descuentos);

 protected:
  void OnLoad() override;

 private:
  std::vector<DescuentoRecibido> descuentos_;

  ui::Grid vsDescuentos{*this, "vsDescuentos"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
