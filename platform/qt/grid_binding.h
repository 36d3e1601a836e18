#pragma once

#include <memory>

#include "kvraedi/ui/grid.h"
#include "platform/qt/bindings.h"

namespace kvraedi::qt {

std::unique_ptr<Binding> Bind(ui::Grid& control, QWidget& parent);

}  // namespace kvraedi::qt
