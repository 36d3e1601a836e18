#include "host/cli/argumentos.h"
#include "host/cli/valores.h"

namespace kvraedi::cli {
namespace {

template <auto campo, class T>
void Poner(Argumentos& argumentos, const std::string& valor) {
  argumentos.compra.*campo = EnteroDesde<T>(valor, 1);
}

constexpr Opcion kPedido = {"--pedido", "N", "Código del pedido a proveedor (obligatoria)",
                            Poner<&DatosCompra::pedido, std::int32_t>, true};

constexpr Opcion kExportar[] = {
    kPedido,
    {"--fichero", "FICHERO", "Fichero que se escribe (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.fichero = NoVacio(v); }, true},
};

constexpr Opcion kOrders[] = {kPedido};

constexpr Opcion kRecadv[] = {
    {"--ejercicio", "A", "Ejercicio de la entrada (obligatoria)",
     Poner<&DatosCompra::ejercicio, std::int16_t>, true},
    {"--almacen", "N", "Almacén de la entrada (obligatoria)",
     Poner<&DatosCompra::almacen, std::int16_t>, true},
    {"--entrada", "N", "Número de la entrada (obligatoria)",
     Poner<&DatosCompra::entrada, std::int32_t>, true},
};

}  // namespace

std::span<const Opcion> OpcionesPedidosExportar() { return kExportar; }
std::span<const Opcion> OpcionesOrdersGenerar() { return kOrders; }
std::span<const Opcion> OpcionesRecadvGenerar() { return kRecadv; }

}  // namespace kvraedi::cli
