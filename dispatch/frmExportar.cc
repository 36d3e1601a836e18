#include "dispatch/frmExportar.h"

#include <utility>

#include "frame/accion.h"
#include "frame/puertos.h"
#include "frame/ruta.h"

namespace kvraedi {
namespace {

constexpr int kAnchoTwips = 8000;  // the path of a folder is long

}  // namespace

frmExportar::frmExportar() : Form("frmExportar", "Exportar Documento") {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  SetLayout(Column(
      {Aligned({Row({lblRuta, txtRuta, cmdExaminar})}), Row({Space(), cmdAceptar, cmdCancelar})}));
  SetWidth(kAnchoTwips);
  cmdExaminar.onClick = [this] { cmdExaminar_Click(); };
  cmdAceptar.onClick = [this] { Cerrar(true, txtRuta.Text()); };
  cmdCancelar.onClick = [this] { Cerrar(false, ""); };
}

void frmExportar::cmdExaminar_Click() {
  Accion("frmExportar:cmdExaminar_Click", [&] {
    const auto carpeta = ui::CurrentToolkit().ChooseFolder(
        {.title = "Selecciona el Directorio", .folder = EntornoActual().ProfileFolder()});
    if (carpeta) txtRuta.SetText(TextoRuta(*carpeta));
  });
}

void frmExportar::Cerrar(bool aceptado, std::string carpeta) {
  aceptado_ = aceptado;
  carpeta_ = std::move(carpeta);
  Unload();
}

}  // namespace kvraedi
