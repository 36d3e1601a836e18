#pragma once

#include <cstdint>
#include <memory>

#include "kvraedi/informe.h"

namespace kvraedi {

/// Opens the preview of a report. There is one preview window for all.
class clsView {
 public:
  void Report(std::shared_ptr<Informe> informe) { informe_ = std::move(informe); }
  /// Shows the report under a zoom in percent; modal returns when the user has closed the preview.
  /// A preview that is open goes over to this report. Raises `Error` when it cannot be prepared.
  void Cargar(bool modal, std::int16_t zoom);

 private:
  std::shared_ptr<Informe> informe_;
};

/// Closes the preview window if there is one.
void CerrarVistaPrevia() noexcept;

}  // namespace kvraedi
