// Received DESADV messages: whatever the file holds, it is taken into the staging tables or refused
// with an Error, and no delivery note stands there twice.
#include <cstdlib>

#include "frame/transaccion.h"
#include "fuzz/base_datos.h"
#include "fuzz/entrada.h"
#include "kvraedi/error.h"
#include "orders/leer_desadv.h"

namespace kvraedi {
namespace {

const desadv::Tablas& TablasVacias() {
  static const desadv::Tablas& tablas = []() -> const desadv::Tablas& {
    static const desadv::Tablas nuevas(1);
    nuevas.Crear(BaseDatos());
    return nuevas;
  }();
  return tablas;
}

void Probar(const std::uint8_t* bytes, std::size_t tamano) {
  const desadv::Tablas& tablas = TablasVacias();
  Transaccion transaccion(BaseDatos());
  try {
    LectorBarras lector("entrada", Fichero(bytes, tamano));
    desadv::Leer(lector, "entrada", tablas, BaseDatos(), Maquina());
  } catch (const Error&) {
    return;
  }
  const auto repetidos = BaseDatos().Open("SELECT Doc_Num FROM " + tablas.cabecera +
                                          " GROUP BY Doc_Num HAVING COUNT(*) > 1");
  if (!repetidos->Eof()) std::abort();
}

}  // namespace
}  // namespace kvraedi

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamano) {
  kvraedi::Probar(bytes, tamano);
  return 0;
}
