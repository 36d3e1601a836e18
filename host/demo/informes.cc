#include "host/demo/informes.h"

#include <fstream>
#include <string>

#include "kvraedi/error.h"

namespace kvraedi::demo {

void CrearInformes(const std::filesystem::path& carpeta) {
  for (const InformeDemo& informe : kInformes) {
    std::ofstream fichero(carpeta / informe.fichero, std::ios::binary);
    fichero << informe.texto;
    fichero.close();
    if (!fichero) {
      throw Error(kErrorFile, "CrearDemo",
                  "No se ha podido escribir el informe " + std::string(informe.fichero));
    }
  }
}

}  // namespace kvraedi::demo
