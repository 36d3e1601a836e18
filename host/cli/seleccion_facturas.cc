#include "host/cli/seleccion_facturas.h"

#include <algorithm>
#include <ostream>
#include <set>

#include "host/cli/columnas.h"
#include "host/cli/fallo.h"
#include "host/cli/sesion_cli.h"

namespace kvraedi::cli {
namespace {

/// Ticks the named rows; false, and the reasons on the messages, when any of them stays unticked.
bool MarcarClaves(const std::vector<ClaveFactura>& claves, PantallaEnvio& pantalla,
                  std::ostream& mensajes) {
  bool bien = true;
  std::set<int> filas;
  for (const ClaveFactura& clave : claves) {
    try {
      const int fila = FilaDe(pantalla.Lista(), clave);
      if (!filas.insert(fila).second) continue;
      pantalla.Marcar(fila);
      if (pantalla.Lista().IsSet(fila, kSeleccion)) continue;
      throw Fallo(kRechazado, "la factura " + clave.Texto() + " está excluida del envío");
    } catch (const Fallo& fallo) {
      mensajes << "kvraedi: " << fallo.what() << '\n';
      bien = false;
    }
  }
  return bien;
}

bool SinErrores(SesionCli& sesion) {
  const auto& cajas = sesion.Pantallas().Messages();
  return std::all_of(cajas.begin(), cajas.end(), [](const ui::MessageBox& caja) {
    return caja.icon == ui::Icon::kInformation || caja.icon == ui::Icon::kQuestion;
  });
}

}  // namespace

void ComprobarSeleccion(const Argumentos& argumentos) {
  if (argumentos.todas == !argumentos.claves.empty()) {
    throw Fallo(kUsoErroneo, "hay que dar --todas o --factura, y sólo una de las dos");
  }
}

bool Seleccionar(const Argumentos& argumentos, std::ostream& mensajes, PantallaEnvio& pantalla,
                 SesionCli& sesion) {
  const bool cargada = pantalla.Cargar(argumentos);
  const bool listaVacia = pantalla.Lista().Rows() == 1;
  if (!cargada && !(listaVacia && SinErrores(sesion))) return false;
  if (argumentos.todas) {
    pantalla.MarcarTodas();
    return true;
  }
  return MarcarClaves(argumentos.claves, pantalla, mensajes) || listaVacia;
}

std::vector<int> Marcadas(const ui::Grid& lista) {
  std::vector<int> filas;
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    if (lista.IsSet(fila, kSeleccion)) filas.push_back(fila);
  }
  return filas;
}

}  // namespace kvraedi::cli
