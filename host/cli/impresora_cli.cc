#include "host/cli/impresora_cli.h"

#ifdef KVRAEDI_DESKTOP
#include "platform/qt/impresora_qt.h"
#include "platform/qt/qt_messages.h"
#endif

namespace kvraedi::cli {

std::unique_ptr<Impresora> NuevaImpresora() {
#ifdef KVRAEDI_DESKTOP
  QuietQtMessages();
  return std::make_unique<ImpresoraQt>();
#else
  return nullptr;
#endif
}

}  // namespace kvraedi::cli
