#include "frame/escritor_texto.h"

#include <exception>
#include <utility>

namespace kvraedi {
namespace {

constexpr std::size_t kBloque = std::size_t{64} * 1024;

}  // namespace

EscritorTexto::~EscritorTexto() {
  try {
    Vaciar();
  } catch (const std::exception&) {
    return;
  }
}

void EscritorTexto::Linea(std::string_view registro) {
  pendiente_.append(registro).append("\r\n");
  if (pendiente_.size() >= kBloque) Vaciar();
}

void EscritorTexto::Cerrar() {
  Vaciar();
  fichero_->Close();
}

void EscritorTexto::Vaciar() {
  // Taken first: what the system refused once is not offered to it again.
  const std::string bytes = std::exchange(pendiente_, {});
  if (!bytes.empty()) fichero_->Write(bytes);
}

}  // namespace kvraedi
