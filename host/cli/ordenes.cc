#include "host/cli/ordenes.h"

#include <array>

namespace kvraedi::cli {

namespace {

constexpr auto kOrdenes = std::to_array<Orden>({
    {"", "demo", "Crea una base de datos de demostración", OpcionesDemo, EjecutarDemo},
    {"facturas", "listar", "Lista las facturas emitidas", OpcionesListar, EjecutarListar},
    {"facturas", "enviar", "Envía facturas de un cliente", OpcionesEnviar, EjecutarEnviar},
    {"facturas", "exportar", "Exporta facturas de un cliente de Facturae", OpcionesExportar,
     EjecutarExportar},
    {"anexos", "listar", "Lista los anexos de una factura", OpcionesAnexosListar,
     EjecutarAnexosListar},
    {"anexos", "anadir", "Anexa un documento a una factura", OpcionesAnexosAnadir,
     EjecutarAnexosAnadir},
    {"anexos", "quitar", "Quita un anexo de una factura", OpcionesAnexosQuitar,
     EjecutarAnexosQuitar},
    {"centros", "listar", "Lista los centros administrativos", OpcionesCentrosListar,
     EjecutarCentrosListar},
    {"centros", "anadir", "Añade un centro administrativo", OpcionesCentrosAnadir,
     EjecutarCentrosAnadir},
    {"centros", "modificar", "Modifica un centro administrativo", OpcionesCentrosModificar,
     EjecutarCentrosModificar},
    {"centros", "eliminar", "Elimina un centro administrativo", OpcionesCentrosEliminar,
     EjecutarCentrosEliminar},
    {"pedidos", "exportar", "Exporta un pedido a proveedor al fichero de su plataforma",
     OpcionesPedidosExportar, EjecutarPedidosExportar},
    {"orders", "generar", "Genera el mensaje ORDERS de un pedido a proveedor",
     OpcionesOrdersGenerar, EjecutarOrdersGenerar},
    {"orders", "insertar", "Toma los pedidos de clientes recibidos", nullptr,
     EjecutarOrdersInsertar},
    {"orders", "pendientes", "Dice qué pedidos recibidos no se han creado y por qué", nullptr,
     EjecutarOrdersPendientes},
    {"orders", "reprocesar", "Hace que un fichero de OK o Error se lea otra vez",
     OpcionesReprocesar, EjecutarOrdersReprocesar},
    {"orders", "apartar", "Pasa a Error un fichero que espera, para que se lean los demás",
     OpcionesApartar, EjecutarOrdersApartar},
    {"recadv", "generar", "Genera el mensaje RECADV de una entrada de mercancía",
     OpcionesRecadvGenerar, EjecutarRecadvGenerar},
    {"desadv", "insertar", "Convierte en compras un aviso de expedición DESADV recibido",
     OpcionesDesadvInsertar, EjecutarDesadvInsertar},
    {"desadv", "reprocesar", "Hace que un fichero de OK o Error se lea otra vez",
     OpcionesReprocesar, EjecutarDesadvReprocesar},
    {"recibidas", "listar", "Lista las facturas recibidas", OpcionesRecibidasListar,
     EjecutarRecibidasListar},
    {"recibidas", "visar", "Da el visado a una factura recibida", OpcionesRecibidasUna,
     EjecutarRecibidasVisar},
    {"recibidas", "comentar", "Cambia las observaciones de una factura recibida",
     OpcionesRecibidasComentar, EjecutarRecibidasComentar},
    {"recibidas", "ver", "Muestra una factura recibida", OpcionesRecibidasUna,
     EjecutarRecibidasVer},
    {"recibidas", "imprimir", "Imprime una factura recibida", OpcionesRecibidasImprimir,
     EjecutarRecibidasImprimir},
    {"pendientes", "listar", "Lista los ficheros pendientes de clasificar",
     OpcionesPendientesListar, EjecutarPendientesListar},
    {"", "ver", "Muestra los campos de ficheros y lo que está mal en ellos", OpcionesVer,
     EjecutarVer},
    {"", "comparar", "Compara dos ficheros, registro a registro y campo a campo", OpcionesComparar,
     EjecutarComparar},
    {"", "pantallas", "Abre las pantallas en una ventana", OpcionesPantallas, EjecutarPantallas},
});

}  // namespace

std::span<const Orden> Ordenes() { return kOrdenes; }

}  // namespace kvraedi::cli
