#pragma once

#include <cstddef>

#include "bench/puesto.h"
#include "kvraedi/clsFacturacionEmision.h"

namespace kvraedi::bench {

/// The list of invoices of two years, filled as the user does: the two dates, then Enter.
class Lista {
 public:
  explicit Lista(Puesto& puesto) {
    clase_.Show(0, nullptr);
    form_ = puesto.toolkit.OpenForm("frmEnvioFactura");
    dynamic_cast<ui::DateBox&>(*form_->Find("txtFechaI")).Type("01/01/2025");
    hasta_ = dynamic_cast<ui::DateBox*>(form_->Find("txtFechaF"));
    hasta_->Type("31/12/2026");
  }
  void Llenar() { hasta_->PressEnter(); }
  std::size_t Filas() const {
    return static_cast<std::size_t>(dynamic_cast<ui::Grid&>(*form_->Find("vsDocs")).Rows()) - 1;
  }

 private:
  clsFacturacionEmision clase_;
  ui::Form* form_ = nullptr;
  ui::DateBox* hasta_ = nullptr;
};

}  // namespace kvraedi::bench
