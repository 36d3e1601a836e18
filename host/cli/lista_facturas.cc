#include "host/cli/lista_facturas.h"

#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "host/cli/clave_factura.h"
#include "host/cli/columnas.h"
#include "host/cli/tabla.h"

namespace kvraedi::cli {
namespace {

constexpr std::array<std::string_view, kColumnas> kNombresJson = {
    "seleccion", "generada",       "serie",     "factura",        "fecha",
    "cliente",   "cliente_nombre", "almacen",   "almacen_nombre", "importe",
    "tipo_doc",  "no_enviar",      "ejercicio", "anexos",         "tipo",
    "tipo_num",  "almacen_ft",     "caja_ft",   "fecha_ft",       "codigo_ft",
};

std::string Excluida(const ui::Grid& lista, int fila) {
  return lista.IsSet(fila, kNoEnviar) ? "X" : "";
}

constexpr ColumnaTabla kTabla[] = {
    {"GN", Celda<kGenerada>},           {"S", Celda<kSerie>, true},
    {"Factura", Celda<kFactura>, true}, {"Fecha", Celda<kFecha>},
    {"Cliente", Celda<kCliente>, true}, {"Nombre", Celda<kClienteNombre>},
    {"Alm.", Celda<kAlmacen>, true},    {"Almacén", Celda<kAlmacenNombre>},
    {"Importe", Celda<kImporte>, true}, {"No enviar", Excluida},
    {"Anexos", Celda<kAnexos>},         {"Tipo", Celda<kTipo>},
    {"Clave", ClaveFactura::De},
};

}  // namespace

void EscribirJson(const ui::Grid& lista, std::ostream& salida) {
  EscribirJson(lista, kNombresJson, salida);
}

void EscribirTabla(const ui::Grid& lista, std::ostream& salida) {
  EscribirTabla(lista, kTabla, salida);
}

}  // namespace kvraedi::cli
