#pragma once

class QApplication;

namespace kvraedi::desktop {

/// Style, colours and language of the desktop.
void ApplyLook(QApplication& application);

}  // namespace kvraedi::desktop
