#pragma once

#include <memory>

#include "kvraedi/ui/report_viewer.h"
#include "platform/qt/bindings.h"

namespace kvraedi::qt {

std::unique_ptr<Binding> Bind(ui::ReportViewer& control, QWidget& parent);

}  // namespace kvraedi::qt
