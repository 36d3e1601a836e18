#include "frame/frmView.h"

#include <utility>

#include "frame/accion.h"
#include "frame/fichero_provisional.h"
#include "frame/puertos.h"
#include "kvraedi/error.h"
#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

frmView::frmView() : Form("frmView", "Vista previa") {
  crvRep.onPrint = [this] { crvRep_PrintButtonClicked(); };
  crvRep.onSave = [this](const auto& fichero) { crvRep_ExportButtonClicked(fichero); };
  crvRep.onClose = [this] { Unload(); };
  SetLayout(crvRep);
}

void frmView::Presentar() {
  if (!informe_) throw Error(kErrorItemNotFound, "frmView", "No hay ningún informe que mostrar");
  DocumentoImprimible documento = informe_->Documento();
  SetCaption(documento.titulo.empty() ? "Vista previa" : "Vista previa: " + documento.titulo);
  crvRep.SetTools({.navigation = true, .print = true, .save = opcionGuardar_});
  crvRep.SetSource(std::move(documento));
  crvRep.SetZoom(zoom_);
}

void frmView::OnActivate() { ui::CurrentToolkit().SetPointer(ui::Pointer::kDefault); }

void frmView::crvRep_PrintButtonClicked() {
  Accion("frmView:crvRep_PrintButtonClicked",
         [this] { SuiteActual().ImpresoraActual().Imprimir(crvRep.Source()); });
}

void frmView::crvRep_ExportButtonClicked(const std::filesystem::path& fichero) {
  Accion("frmView:crvRep_ExportButtonClicked", [&] {
    const std::string pdf = SuiteActual().ImpresoraActual().Pdf(crvRep.Source());
    FicheroProvisional provisional(EntornoActual(), RutaParcial(fichero));
    const auto escritor = EntornoActual().Create(provisional.Ruta());
    escritor->Write(pdf);
    escritor->Close();
    provisional.Publicar(fichero);
  });
}

}  // namespace kvraedi
