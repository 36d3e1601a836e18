#pragma once

#include <cstdint>
#include <memory>

#include "kvraedi/informe.h"
#include "kvraedi/ui/form.h"
#include "kvraedi/ui/report_viewer.h"

namespace kvraedi {

/// The preview of a report: a viewer that fills the window.
class frmView : public ui::Form {
 public:
  frmView();

  void Report(std::shared_ptr<Informe> informe) { informe_ = std::move(informe); }
  /// Whether the viewer offers to save the document in a file.
  void OpcionGuardar(bool opcion) { opcionGuardar_ = opcion; }
  void Zoom(std::int16_t porcentaje) { zoom_ = porcentaje; }
  /// Reads the report and shows it; loading the form does so.
  void Presentar();

 protected:
  void OnLoad() override { Presentar(); }
  void OnActivate() override;

 private:
  void crvRep_PrintButtonClicked();
  void crvRep_ExportButtonClicked(const std::filesystem::path& fichero);

  std::shared_ptr<Informe> informe_;
  bool opcionGuardar_ = false;
  std::int16_t zoom_ = 100;

  ui::ReportViewer crvRep{*this, "crvRep"};
};

}  // namespace kvraedi
