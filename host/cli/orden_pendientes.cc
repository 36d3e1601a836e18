#include <array>

#include "host/cli/controles.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "host/cli/tabla.h"
#include "kvraedi/frmclsPdteClasificar.h"

namespace kvraedi::cli {
namespace {

constexpr std::array<std::string_view, 8> kNombresJson = {
    "fichero",          "proveedor_gln",   "proveedor_nombre", "comprador_gln",
    "comprador_nombre", "fecha_recepcion", "plataforma",       "tipo_mensaje"};

constexpr ColumnaTabla kTabla[] = {
    {"Fichero", Celda<0>},       {"GLN proveedor", Celda<1>, true}, {"Proveedor", Celda<2>},
    {"GLN comprador", Celda<3>}, {"Comprador", Celda<4>},           {"Recibido", Celda<5>},
};

}  // namespace

int EjecutarPendientesListar(const Argumentos& argumentos, const Salida& salida) {
  SesionCli sesion(argumentos, salida.mensajes);
  sesion.Usar<frmclsPdteClasificar>("frmPdteClasificar", [&](ui::Form& form) {
    if (!sesion.Pantallas().Messages().empty()) return;
    const auto& lista = Buscar<ui::Grid>(form, "vsDocs");
    if (argumentos.json) {
      EscribirJson(lista, kNombresJson, salida.resultado);
    } else {
      EscribirTabla(lista, kTabla, salida.resultado);
    }
  });
  return sesion.Pantallas().Messages().empty() ? kHecho : kRechazado;
}

}  // namespace kvraedi::cli
