#include "host/cli/argumentos.h"
#include "host/cli/valores.h"

namespace kvraedi::cli {
namespace {

constexpr Opcion kInsertar[] = {
    {"--fichero", "FICHERO", "Nombre de un fichero de la carpeta Rx (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.fichero = NoVacio(v); }, true},
};

constexpr Opcion kRecibido = {"FICHERO", "FICHERO", "Nombre del fichero, sin carpeta (obligatorio)",
                              [](Argumentos& a, const std::string& v) { a.fichero = NoVacio(v); },
                              true};

constexpr Opcion kReprocesar[] = {
    kRecibido,
    {"--forzar", "", "También si su contenido ya se leyó",
     [](Argumentos& a, const std::string& /*v*/) { a.forzar = true; }},
};

constexpr Opcion kApartar[] = {kRecibido};

}  // namespace

std::span<const Opcion> OpcionesDesadvInsertar() { return kInsertar; }
std::span<const Opcion> OpcionesReprocesar() { return kReprocesar; }
std::span<const Opcion> OpcionesApartar() { return kApartar; }

}  // namespace kvraedi::cli
