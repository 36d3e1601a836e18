#include "frame/reserva.h"

#include "kvraedi/error.h"

namespace kvraedi {
namespace {

/// It may have been let go since.
std::string Quien(Entorno& entorno, const std::filesystem::path& fichero) {
  try {
    const std::string nombre = entorno.ReadFile(fichero);
    if (!nombre.empty()) return " el terminal " + nombre;
  } catch (const Error&) {
    return " otro terminal";
  }
  return " otro terminal";
}

}  // namespace

std::unique_ptr<FileHold> Reservar(Entorno& entorno, const std::filesystem::path& fichero,
                                   const std::string& que, std::chrono::milliseconds espera) {
  auto reserva = entorno.Hold(fichero, espera);
  if (!reserva) throw Error(kErrorFile, "kvraedi", que + Quien(entorno, fichero));
  return reserva;
}

void ThrowYaEnviada(const std::string& que) {
  throw Error(kErrorFile, "kvraedi",
              que + " ya la ha enviado otro terminal. Vuelva a cargar la lista");
}

}  // namespace kvraedi
