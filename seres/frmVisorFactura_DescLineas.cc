#include "seres/frmVisorFactura_DescLineas.h"

#include <utility>

#include "frame/formato.h"

namespace kvraedi {

std::array<ui::GridColumn, kColumnasDescuento> ColumnasDescuento(std::string_view numero) {
  using ui::Alignment;
  return {{
      {numero, 850, Alignment::kRight},
      {"Indicador", 1400},
      {"Dto %", 950, Alignment::kRight},
      {"Dto Imp.", 1050, Alignment::kRight},
      {"Tipo", 1450},
  }};
}

std::array<std::string, kColumnasDescuento> CeldasDescuento(const DescuentoRecibido& descuento) {
  constexpr int kDecimalesPorcentaje = 4, kDecimalesImporte = 3;
  return {descuento.numero, descuento.cargo ? "(C) Cargo" : "(A) Descuento",
          NumeroTexto(descuento.porcentaje, kDecimalesPorcentaje),
          NumeroTexto(descuento.importe, kDecimalesImporte),
          std::string(NombreCalificador(descuento.calificador))};
}

void AnadirDescuento(ui::Grid& grid, const DescuentoRecibido& descuento) {
  const auto celdas = CeldasDescuento(descuento);
  grid.AddRow(std::vector<std::string_view>(celdas.begin(), celdas.end()));
}

frmVisorFactura_DescLineas::frmVisorFactura_DescLineas(std::vector<DescuentoRecibido> descuentos)
    : Form("frmVisorFactura_DescLineas", "Descuentos de la línea"),
      descuentos_(std::move(descuentos)) {
  SetLayout(ui::Column({vsDescuentos, ui::Row({ui::Space(), cmdSalir})}));
  cmdSalir.onClick = [this] { Unload(); };
}

void frmVisorFactura_DescLineas::OnLoad() {
  vsDescuentos.SetColumns(ColumnasDescuento("Número"));
  for (const DescuentoRecibido& descuento : descuentos_) AnadirDescuento(vsDescuentos, descuento);
}

}  // namespace kvraedi
