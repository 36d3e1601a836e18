#include "platform/suite/frmBuscar.h"

#include <utility>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi::suite {

frmBuscar::frmBuscar(std::string titulo, std::span<const ui::GridColumn> columnas,
                     Consulta consulta)
    : Form("frmBuscar", std::move(titulo)), columnas_(columnas), consulta_(std::move(consulta)) {
  SetLayout(ui::Column({
      ui::Row({lblTexto, txtTexto, cmdBuscar}),
      vsFilas,
      ui::Row({ui::Space(), cmdAceptar, cmdCancelar}),
  }));
  txtTexto.onEnter = [this] { Buscar(); };
  cmdBuscar.onClick = [this] { Buscar(); };
  vsFilas.onEnter = [this] { Aceptar(); };
  cmdAceptar.onClick = [this] { Aceptar(); };
  cmdCancelar.onClick = [this] { Unload(); };
}

std::vector<std::string> frmBuscar::Elegir(std::string_view texto, ui::Form& owner) {
  txtTexto.SetText(std::string(texto));
  Show(ui::ShowMode::kModal, &owner);
  return elegida_;
}

void frmBuscar::OnLoad() {
  vsFilas.SetColumns(columnas_);
  Buscar();
  txtTexto.SetFocus();
}

void frmBuscar::Buscar() {
  vsFilas.SetRedraw(false);
  try {
    Llenar();
  } catch (const Error& error) {
    ui::CurrentToolkit().Show(
        {.text = error.Description(), .title = "frmBuscar:Buscar", .icon = ui::Icon::kCritical});
  }
  vsFilas.SetRedraw(true);
  if (vsFilas.Rows() > 1) vsFilas.SetRow(1);
  cmdAceptar.SetEnabled(vsFilas.Row() > 0);
}

void frmBuscar::Llenar() {
  vsFilas.Reset();
  const auto rs = consulta_(txtTexto.Text());
  std::vector<std::string> texts(columnas_.size());
  std::vector<std::string_view> cells(columnas_.size());
  for (; !rs->Eof(); rs->MoveNext()) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      texts[i] = rs->GetOrEmpty<std::string>(static_cast<int>(i));
      cells[i] = texts[i];
    }
    vsFilas.AddRow(cells);
  }
}

void frmBuscar::Aceptar() {
  if (vsFilas.Row() == 0) return;
  for (int col = 0; col < vsFilas.Cols(); ++col) {
    elegida_.emplace_back(vsFilas.Cell(vsFilas.Row(), col));
  }
  Unload();
}

}  // namespace kvraedi::suite
