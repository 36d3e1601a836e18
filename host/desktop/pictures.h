#pragma once

#include "host/desktop/desktop.h"
#include "host/desktop/frmPrincipal.h"
#include "platform/qt/qt_toolkit.h"

namespace kvraedi::desktop {

/// Goes through the screens as a user would and saves a picture of each step. Raises `Error`.
void TakePictures(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures);

}  // namespace kvraedi::desktop
