#include "dispatch/resultado_envio.h"

namespace kvraedi {
namespace {

ResultadoEnvio& Registro() {
  static ResultadoEnvio registro;
  return registro;
}

}  // namespace

ResultadoEnvio& EmpezarResultadoEnvio() { return Registro() = {}; }

const ResultadoEnvio& UltimoResultadoEnvio() { return Registro(); }

}  // namespace kvraedi
