#include "frame/transaccion.h"

#include "kvraedi/error.h"

namespace kvraedi {

Transaccion::~Transaccion() {
  if (!abierta_) return;
  try {
    conexion_.RollbackTrans();
  } catch (const Error&) {  // the database has undone it already, or is gone
    return;
  }
}

void Transaccion::Confirmar() {
  conexion_.CommitTrans();
  abierta_ = false;
}

}  // namespace kvraedi
