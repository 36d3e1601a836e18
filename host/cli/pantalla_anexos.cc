#include "host/cli/pantalla_anexos.h"

#include "host/cli/controles.h"

namespace kvraedi::cli {

PantallaAnexos::PantallaAnexos(ui::Form& form)
    : cmdExaminar_(Buscar<ui::Button>(form, "cmdExaminar")),
      txtDescripcion_(Buscar<ui::TextBox>(form, "txtDescripcion")),
      cmdAnexar_(Buscar<ui::Button>(form, "cmdAnexar")),
      vsDocs_(Buscar<ui::Grid>(form, "vsDocs")),
      cmdEliminarAnexo_(Buscar<ui::Button>(form, "cmdEliminarAnexo")),
      cmdSalir_(Buscar<ui::Button>(form, "cmdSalir")) {}

void PantallaAnexos::Anadir(std::string_view descripcion) {
  cmdExaminar_.Press();
  txtDescripcion_.Type(descripcion);
  cmdAnexar_.Press();
}

bool PantallaAnexos::Quitar(std::string_view nombre) {
  for (int fila = 1; fila < vsDocs_.Rows(); ++fila) {
    if (vsDocs_.Cell(fila, 0) != nombre) continue;
    vsDocs_.MoveTo(fila);
    cmdEliminarAnexo_.Press();
    return true;
  }
  return false;
}

}  // namespace kvraedi::cli
