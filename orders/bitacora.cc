#include "orders/bitacora.h"

#include <exception>

#include "frame/puertos.h"

namespace kvraedi {

Bitacora::Bitacora(Entorno& entorno, const std::filesystem::path& fichero, std::string_view rutina)
    : entorno_(entorno), rutina_(rutina), log_(SuiteActual().AbrirLog(entorno, fichero)) {}

void Bitacora::AnotarFallo(std::string_view texto) noexcept {
  try {
    Anotar(texto);
  } catch (const std::exception&) {
    return;
  }
}

void Bitacora::DescartarAntiguas() {
  constexpr std::int64_t kTreintaDias = std::int64_t{30} * 24 * 60 * 60;
  log_->DescartarAnteriores(entorno_.Now().PlusSeconds(-kTreintaDias));
}

}  // namespace kvraedi
