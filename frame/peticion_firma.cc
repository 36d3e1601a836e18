#include "frame/peticion_firma.h"

#include <exception>

#include "frame/carpeta_anexos.h"

namespace kvraedi {

void BorrarPeticionAbandonada(Entorno& entorno) noexcept {
  try {
    const auto trabajo = CarpetaAnexos(entorno).Ruta().parent_path();
    if (!entorno.FileExists(trabajo / kPeticionFirma)) return;
    const auto firmador = entorno.Hold(trabajo / kFirmadorOcupado, {});
    if (!firmador) return;  // somebody signs
    if (!firmador->Text().empty()) firmador->Leave();
    entorno.Delete(trabajo / kPeticionFirma);
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace kvraedi
