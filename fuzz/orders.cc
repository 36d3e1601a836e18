// Received ORDERS messages: whatever the file holds, it is taken in or refused with an Error, and
// what is taken in stands in the tables as many times as the file says.
#include <cstdlib>

#include "frame/transaccion.h"
#include "fuzz/base_datos.h"
#include "fuzz/entrada.h"
#include "kvraedi/error.h"
#include "orders/leer_pedidos.h"

namespace kvraedi {
namespace {

std::int64_t Contar(const char* etiqueta, const std::uint8_t* bytes, std::size_t tamano) {
  std::int64_t veces = 0;
  LectorBarras lector("entrada", Fichero(bytes, tamano));
  while (lector.Siguiente()) veces += lector.Etiqueta() == etiqueta ? 1 : 0;
  return veces;
}

std::int64_t Filas(const char* sql) { return BaseDatos().Open(sql)->Get<std::int64_t>("Filas"); }

void Probar(const std::uint8_t* bytes, std::size_t tamano) {
  Transaccion transaccion(BaseDatos());
  try {
    LectorBarras lector("entrada", Fichero(bytes, tamano));
    LeerPedidos(lector, "entrada", BaseDatos(), Maquina());
  } catch (const Error&) {
    return;
  }
  const bool bien =
      Filas("SELECT COUNT(*) AS Filas FROM EDI_PedidosClientes") == Contar("ORD", bytes, tamano) &&
      Filas("SELECT COUNT(*) AS Filas FROM EDI_PedidosClientes_Lineas") ==
          Contar("LIN", bytes, tamano);
  if (!bien) std::abort();
}

}  // namespace
}  // namespace kvraedi

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamano) {
  kvraedi::Probar(bytes, tamano);
  return 0;
}
