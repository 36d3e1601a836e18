#include "frame/fichero_envio.h"

#include <exception>
#include <utility>

#include "kvraedi/error.h"

namespace kvraedi {
FicheroEnvio::FicheroEnvio(Entorno& entorno, const std::filesystem::path& trabajo,
                           const std::filesystem::path& destino, const std::string& nombre)
    : entorno_(entorno),
      trabajo_(trabajo / nombre),
      final_(destino / nombre),
      escritor_(std::make_unique<EscritorTexto>(entorno.Create(trabajo_))) {}

FicheroEnvio::~FicheroEnvio() {
  escritor_.reset();
  Retirar(trabajo_);
  Retirar(copia_);
}

void FicheroEnvio::Preparar() {
  escritor_->Cerrar();
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
