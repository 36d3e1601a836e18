#include "platform/os/error_sistema.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "kvraedi/error.h"

namespace kvraedi::os {
namespace {

struct Motivo {
  int codigo;
  std::string_view texto;
};

constexpr Motivo kMotivos[] = {
    {ENOENT, "no existe"},
    {EACCES, "permiso denegado"},
    {EPERM, "permiso denegado"},
    {ENOSPC, "disco lleno"},
    {EDQUOT, "se ha agotado la cuota de disco"},
    {EROFS, "el disco es de sólo lectura"},
    {EEXIST, "ya existe un fichero con ese nombre"},
    {ENOTDIR, "una parte de la ruta no es una carpeta"},
    {EISDIR, "es una carpeta"},
    {ENOTEMPTY, "la carpeta no está vacía"},
    {ENAMETOOLONG, "el nombre es demasiado largo"},
    {ELOOP, "hay demasiados enlaces en la ruta"},
    {EXDEV, "está en otro disco"},
    {EBUSY, "está en uso"},
    {ETXTBSY, "está en uso"},
    {EMFILE, "hay demasiados ficheros abiertos"},
    {ENFILE, "hay demasiados ficheros abiertos"},
    {EFBIG, "el fichero es demasiado grande"},
    {EIO, "error de lectura o escritura en el disco"},
    {ENOMEM, "no hay memoria suficiente"},
    {EINVAL, "operación no admitida"},
    {ENOLCK, "la carpeta no admite reservas"},
    {ESPIPE, "no es un fichero corriente"},
};

}  // namespace

std::string MotivoSistema(int codigo) {
  const auto* const motivo =
      std::find_if(std::begin(kMotivos), std::end(kMotivos),
                   [codigo](const Motivo& candidato) { return candidato.codigo == codigo; });
  if (motivo != std::end(kMotivos)) return std::string(motivo->texto);
  return "error " + std::to_string(codigo) + " del sistema";
}

void FalloSistema(std::string_view operacion, const std::filesystem::path& ruta, int codigo) {
  throw Error(kErrorFile, "EntornoSistema",
              std::string(operacion) + " «" + ruta.string() + "»: " + MotivoSistema(codigo));
}

}  // namespace kvraedi::os
