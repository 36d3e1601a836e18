#include "frame/fichero_envio.h"

#include <exception>
#include <utility>

#include "kvraedi/error.h"

namespace kvraedi {
namespace {

constexpr std::size_t kBloque = std::size_t{64} * 1024;

}  // namespace

FicheroEnvio::FicheroEnvio(Entorno& entorno, const std::filesystem::path& trabajo,
                           const std::filesystem::path& destino, const std::string& nombre)
    : entorno_(entorno),
      trabajo_(trabajo / nombre),
      final_(destino / nombre),
      escritor_(entorno.Create(trabajo_)) {}

FicheroEnvio::~FicheroEnvio() {
  escritor_.reset();
  Retirar(trabajo_);
  Retirar(copia_);
}

void FicheroEnvio::Linea(std::string_view registro) {
  pendiente_.append(registro).append("\r\n");
  if (pendiente_.size() >= kBloque) Vaciar();
}

void FicheroEnvio::Vaciar() {
  if (!pendiente_.empty()) escritor_->Write(pendiente_);
  pendiente_.clear();
}

void FicheroEnvio::Preparar() {
  Vaciar();
  escritor_->Close();
  std::filesystem::path copia = final_;
  copia += ".parcial";
  copia_ = copia;
  entorno_.Copy(trabajo_, copia_);
  entorno_.Delete(trabajo_);
  trabajo_.clear();
}

void FicheroEnvio::Publicar() {
  const std::filesystem::path copia = std::exchange(copia_, {});
  try {
    entorno_.Rename(copia, final_);
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(),
                error.Description() + ". El fichero ha quedado en " + copia.string());
  }
}

void FicheroEnvio::Retirar(std::filesystem::path& fichero) noexcept {
  if (fichero.empty()) return;
  try {
    if (entorno_.FileExists(fichero)) entorno_.Delete(fichero);
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace kvraedi
