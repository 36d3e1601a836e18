#include <filesystem>
#include <memory>

#include "frame/accion.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "kvraedi/clsOrders.h"
#include "kvraedi/error.h"
#include "orders/crear_pedidos.h"
#include "orders/interrumpidos.h"
#include "orders/procesar_ficheros.h"

namespace kvraedi {
namespace {

std::filesystem::path PrepararCarpeta() {
  const auto raiz = ParametroRuta("EDI_PathFichRecibir");
  if (raiz.empty()) {
    throw Error(kErrorItemNotFound, "kvraedi", "La carpeta de recepción no está configurada");
  }
  auto carpeta = raiz / "ORDERS";
  EntornoActual().MakeFolder(carpeta);
  for (const char* subcarpeta : {"Temp", "OK", "Error", "Log"}) {
    EntornoActual().MakeFolder(carpeta / subcarpeta);
  }
  return carpeta;
}

}  // namespace

bool clsOrders::Insertar() {
  std::filesystem::path carpeta;
  std::unique_ptr<FileHold> reserva;  // for both passes
  const bool preparada = Accion("clsOrders:Insertar", [&] {
    carpeta = PrepararCarpeta();
    reserva = ReservarPedidos(carpeta);
  });
  if (!preparada) return false;
  Accion("clsOrders:ProcesarFicheros", [&] { ProcesarFicheros(carpeta); });
  Accion("clsOrders:CrearPedidosClientes", [&] {
    if (QuedanInterrumpidos(carpeta)) {
      throw Error(kErrorFile, "kvraedi",
                  "Hay un fichero a medio leer; vuelva a insertar los pedidos");
    }
    CrearPedidosClientes(carpeta);
  });
  return true;
}

}  // namespace kvraedi
