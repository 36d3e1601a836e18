#include "frame/fichero_envio.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "frame/fichero_provisional.h"
#include "frame/ruta.h"
#include "kvraedi/error.h"

namespace kvraedi {

namespace {

constexpr const char* kTrabajo = "Temp";

bool EnUso(Entorno& entorno, const std::filesystem::path& raiz, const std::string& nombre) {
  const auto carpetas = entorno.ListFolders(raiz);
  return std::any_of(carpetas.begin(), carpetas.end(), [&](const std::string& carpeta) {
    if (carpeta == kTrabajo) return false;
    const auto ruta = raiz / RutaDe(carpeta) / RutaDe(nombre);
    return entorno.FileExists(RutaParcial(ruta)) || entorno.FileExists(ruta);
  });
}

}  // namespace

// The object is complete when the other constructor has run: whatever fails then is cleaned up.
FicheroEnvio::FicheroEnvio(Entorno& entorno, const std::filesystem::path& raiz,
                           const std::string& carpeta, const NombrePorSello& nombrar)
    : FicheroEnvio(entorno) {
  do {
    final_ = raiz / RutaDe(carpeta) / RutaDe(nombrar(entorno.FileStamp()));
  } while (!Crear(raiz));
}

/// False when the name is in use. The work file comes first and the final one last, in the order in
/// which another sender's file moves on, so that it cannot slip past.
bool FicheroEnvio::Crear(const std::filesystem::path& raiz) {
  const auto trabajo = raiz / kTrabajo / final_.filename();
  auto fichero = entorno_.CreateNew(trabajo);
  if (!fichero) return false;
  trabajo_ = trabajo;
  if (EnUso(entorno_, raiz, Nombre())) {
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

void ConcluirEnvio(Entorno& entorno, const std::filesystem::path& raiz, const std::string& carpeta,
                   const std::string& nombre, bool registrado) {
  const auto trabajo = raiz / kTrabajo / RutaDe(nombre);
  if (entorno.FileExists(trabajo)) entorno.Delete(trabajo);
  const auto final = raiz / RutaDe(carpeta) / RutaDe(nombre);
  const auto copia = RutaParcial(final);
  if (!entorno.FileExists(copia)) return;
  if (registrado) {
    entorno.Rename(copia, final);
  } else {
    entorno.Delete(copia);
  }
}

}  // namespace kvraedi
