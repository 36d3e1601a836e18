#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "kvraedi/adaptadores.h"
#include "kvraedi/clsOrders.h"
#include "kvraedi/clsPedidosProvEmision.h"
#include "kvraedi/clsRecadv.h"

namespace kvraedi::cli {
namespace {

/// Tells whether a file was made: an export that writes none is no failure of the component.
class EntornoAtento : public EntornoWrapper {
 public:
  using EntornoWrapper::EntornoWrapper;

  std::unique_ptr<FileWriter> Create(const std::filesystem::path& file) override {
    creado_ = true;
    return EntornoWrapper::Create(file);
  }
  bool Creado() const { return creado_; }

 private:
  bool creado_ = false;
};

/// Runs `generar` on a message class and tells the file that it wrote.
template <class Mensaje>
int Generar(const Argumentos& argumentos, const Salida& salida, const char* documento,
            bool (*generar)(Mensaje& mensaje, const DatosCompra& compra)) {
  SesionCli sesion(argumentos, salida.mensajes);
  Mensaje mensaje;
  mensaje.EmpresaKestrova(sesion.EmpresaActual());
  mensaje.ConexionKestrova(sesion.Conexion());
  const bool hecho = generar(mensaje, argumentos.compra);
  sesion.Cerrar();
  if (!hecho) return kRechazado;
  if (mensaje.PathFicheroGenerado().empty()) {
    throw Fallo(kRechazado,
                std::string("no hay ningún fichero que generar: no existe ") + documento);
  }
  salida.resultado << mensaje.PathFicheroGenerado() << '\n';
  return kHecho;
}

}  // namespace

int EjecutarPedidosExportar(const Argumentos& argumentos, const Salida& salida) {
  SesionCli sesion(argumentos, salida.mensajes);
  EntornoAtento entorno(sesion.EntornoActual());
  InstalarAdaptadores({&entorno, &sesion.Pantallas(), &sesion.SuiteActual()});
  clsPedidosProvEmision pedidos;
  pedidos.EmpresaKestrova(sesion.EmpresaActual());
  pedidos.ConexionKestrova(sesion.Conexion());
  pedidos.Codigo_Pedido(argumentos.compra.pedido);
  pedidos.Exportar(argumentos.fichero);
  sesion.Cerrar();
  if (!entorno.Creado()) {
    throw Fallo(kRechazado, "el proveedor tiene un tipo de mensaje que no escribe ningún fichero");
  }
  salida.resultado << argumentos.fichero << '\n';
  return kHecho;
}

int EjecutarOrdersGenerar(const Argumentos& argumentos, const Salida& salida) {
  return Generar<clsOrders>(
      argumentos, salida, "el pedido, o le faltan las líneas, el proveedor o el almacén",
      [](clsOrders& orders, const DatosCompra& compra) { return orders.Generar(compra.pedido); });
}

int EjecutarRecadvGenerar(const Argumentos& argumentos, const Salida& salida) {
  return Generar<clsRecadv>(argumentos, salida, "la entrada o su almacén",
                            [](clsRecadv& recadv, const DatosCompra& compra) {
                              return recadv.Generar(compra.ejercicio, compra.almacen,
                                                    compra.entrada);
                            });
}

}  // namespace kvraedi::cli
