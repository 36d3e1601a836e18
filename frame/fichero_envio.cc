#include "frame/fichero_envio.h"

#include <exception>
#include <optional>
#include <utility>

#include "frame/fichero_provisional.h"
#include "frame/ruta.h"
#include "kvraedi/error.h"

namespace kvraedi {

// The object is complete when the other constructor has run: whatever fails then is cleaned up.
FicheroEnvio::FicheroEnvio(Entorno& entorno, const std::filesystem::path& trabajo,
                           const std::filesystem::path& destino, const NombrePorSello& nombrar)
    : FicheroEnvio(entorno) {
  std::optional<FechaHora> anterior;
  for (bool creado = false; !creado;) {
    const FechaHora sello = entorno.FileStamp();
    const std::filesystem::path nombre = RutaDe(nombrar(sello));
    trabajo_ = trabajo / nombre;
    final_ = destino / nombre;
    creado = Crear(sello == anterior);
    anterior = sello;
  }
}

/// False when the name is in use. The work file comes first and the final one last, in the order in
/// which another sender's file moves on, so that it cannot slip past.
bool FicheroEnvio::Crear(bool sustituir) {
  auto fichero = sustituir ? entorno_.Create(trabajo_) : entorno_.CreateNew(trabajo_);
  if (!fichero) {
    trabajo_.clear();
    return false;
  }
  if (!sustituir && (entorno_.FileExists(RutaParcial(final_)) || entorno_.FileExists(final_))) {
    fichero.reset();
    entorno_.Delete(std::exchange(trabajo_, {}));
    return false;
  }
  escritor_ = std::make_unique<EscritorTexto>(std::move(fichero));
  return true;
}

FicheroEnvio::~FicheroEnvio() {
  escritor_.reset();
  Retirar(trabajo_);
  Retirar(copia_);
}

void FicheroEnvio::Preparar() {
  escritor_->Cerrar();
  copia_ = RutaParcial(final_);
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
                error.Description() + ". El fichero ha quedado en " + TextoRuta(copia));
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
