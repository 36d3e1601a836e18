#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "host/cli/columnas.h"
#include "host/cli/fallo.h"
#include "host/cli/ficheros_firmados.h"
#include "host/cli/lista_facturas.h"
#include "host/cli/ordenes.h"
#include "host/cli/pantalla_envio.h"
#include "host/cli/sesion_cli.h"

namespace kvraedi::cli {
namespace {

void AvisarClienteDesconocido(const Argumentos& argumentos, PantallaEnvio& pantalla,
                              const Salida& salida) {
  if (!argumentos.cliente || pantalla.ClienteValido()) return;
  salida.mensajes << "kvraedi: no hay ningún cliente " << *argumentos.cliente << '\n';
}

std::vector<int> Marcadas(const ui::Grid& lista) {
  std::vector<int> filas;
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    if (lista.IsSet(fila, kSeleccion)) filas.push_back(fila);
  }
  return filas;
}

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

void EscribirEnviadas(const ui::Grid& lista, const std::vector<int>& filas, SesionCli& sesion,
                      std::ostream& salida) {
  salida << "Facturas enviadas: " << filas.size() << '\n';
  for (const int fila : filas) salida << "  " << ClaveFactura::De(lista, fila) << '\n';
  if (filas.empty()) return;
  salida << "Carpeta de envíos: " << sesion.Parametro("EDI_PathFichEnvios") << '\n';
  const auto firmados = FicherosFirmados(sesion, lista, filas);
  if (!firmados.empty()) salida << "Documentos firmados:\n";
  for (const auto& firmado : firmados) salida << "  " << firmado.string() << '\n';
}

/// True when no message box was more than information.
bool SoloAvisos(SesionCli& sesion) {
  const auto& cajas = sesion.Pantallas().Messages();
  return std::all_of(cajas.begin(), cajas.end(), [](const ui::MessageBox& caja) {
    return caja.icon == ui::Icon::kInformation;
  });
}

/// Every channel ends a complete sending with a message of this kind and no other box after it.
bool EnvioCorrecto(SesionCli& sesion) {
  const auto& cajas = sesion.Pantallas().Messages();
  return SoloAvisos(sesion) && !cajas.empty() && cajas.back().text.ends_with("correctamente.");
}

int Enviar(const Argumentos& argumentos, const Salida& salida, PantallaEnvio& pantalla,
           SesionCli& sesion) {
  const bool cargada = pantalla.Cargar(argumentos);
  const ui::Grid& lista = pantalla.Lista();
  // With nothing in the list the button sends nothing, and its message says what is wrong.
  const bool listaVacia = lista.Rows() == 1;
  if (!cargada && !(listaVacia && SoloAvisos(sesion))) return kRechazado;
  bool bien = true;
  if (argumentos.todas) {
    pantalla.MarcarTodas();
  } else {
    bien = MarcarClaves(argumentos.claves, pantalla, salida.mensajes);
  }
  if (!bien && !listaVacia) return kRechazado;

  const std::vector<int> marcadas = Marcadas(lista);
  pantalla.Aceptar();
  std::vector<int> enviadas;
  for (const int fila : marcadas) {
    if (!lista.IsSet(fila, kSeleccion)) enviadas.push_back(fila);
  }
  const bool correcto = EnvioCorrecto(sesion);
  if (!correcto || !enviadas.empty()) {
    EscribirEnviadas(lista, enviadas, sesion, salida.resultado);
  }
  if (!correcto) return kRechazado;
  if (enviadas.empty()) {
    // A summary goes to one file for all the invoices of the range, and their rows stay as they
    // are.
    salida.resultado << "Mensaje resumen añadido a: "
                     << (sesion.EntornoActual().DriveRoot() / "KVRAEDI_COACSU.txt").string()
                     << '\n';
  }
  return kHecho;
}

}  // namespace

int EjecutarListar(const Argumentos& argumentos, const Salida& salida) {
  return UsarPantallaEnvio(argumentos, salida, [&](PantallaEnvio& pantalla, SesionCli&) -> int {
    if (!pantalla.Cargar(argumentos)) return kRechazado;
    AvisarClienteDesconocido(argumentos, pantalla, salida);
    const auto escribir = argumentos.json ? EscribirJson : EscribirTabla;
    escribir(pantalla.Lista(), salida.resultado);
    return kHecho;
  });
}

int EjecutarEnviar(const Argumentos& argumentos, const Salida& salida) {
  if (argumentos.todas == !argumentos.claves.empty()) {
    throw Fallo(kUsoErroneo, "hay que dar --todas o --factura, y sólo una de las dos");
  }
  return UsarPantallaEnvio(argumentos, salida, [&](PantallaEnvio& pantalla, SesionCli& sesion) {
    return Enviar(argumentos, salida, pantalla, sesion);
  });
}

}  // namespace kvraedi::cli
