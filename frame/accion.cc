#include "frame/accion.h"

#include "frame/avisos.h"
#include "frame/modMsgOp.h"

namespace kvraedi {

void MostrarError(std::string_view titulo, const std::exception& error) {
  MsgOp(false, kMensajeOperacion);
  Avisar(error.what(), titulo, ui::Icon::kCritical);
}

}  // namespace kvraedi
