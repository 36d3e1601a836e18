#include "host/cli/argumentos.h"
#include "host/cli/valores.h"

namespace kvraedi::cli {
namespace {

constexpr Opcion kInsertar[] = {
    {"--fichero", "FICHERO", "Nombre de un fichero de la carpeta Rx (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.fichero = NoVacio(v); }, true},
};

}  // namespace

std::span<const Opcion> OpcionesDesadvInsertar() { return kInsertar; }

}  // namespace kvraedi::cli
