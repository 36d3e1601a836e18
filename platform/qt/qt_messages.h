#pragma once

namespace kvraedi {

/// For programs whose standard error is read by people or mailed by a timer: the notices of Qt,
/// which are English and meant for developers, are dropped from now on; what ends the program is
/// told in one Spanish line. Process-wide; call it before the first window or page is made.
void QuietQtMessages();

}  // namespace kvraedi
