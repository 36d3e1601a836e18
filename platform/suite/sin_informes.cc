#include "kvraedi/error.h"
#include "platform/suite/informes.h"

namespace kvraedi::suite {

std::unique_ptr<Informe> AbrirInforme(Entorno& /*entorno*/,
                                      const std::shared_ptr<Connection>& /*conexion*/,
                                      const std::filesystem::path& /*fichero*/) {
  throw Error(kErrorFile, "Informe",
              "Esta instalación no puede abrir informes: se construyó sin la biblioteca de "
              "plantillas");
}

}  // namespace kvraedi::suite
