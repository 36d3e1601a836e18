#include <algorithm>
#include <ostream>
#include <vector>

#include "host/cli/columnas.h"
#include "host/cli/fallo.h"
#include "host/cli/ficheros_firmados.h"
#include "host/cli/lista_facturas.h"
#include "host/cli/ordenes.h"
#include "host/cli/pantalla_envio.h"
#include "host/cli/seleccion_facturas.h"
#include "host/cli/sesion_cli.h"
#include "kvraedi/resultado_envio.h"

namespace kvraedi::cli {
namespace {

void AvisarClienteDesconocido(const Argumentos& argumentos, PantallaEnvio& pantalla,
                              const Salida& salida) {
  if (!argumentos.cliente || pantalla.ClienteValido()) return;
  salida.mensajes << "kvraedi: no hay ningún cliente " << *argumentos.cliente << '\n';
}

void AvisarDudosas(SesionCli& sesion, std::ostream& mensajes) {
  const auto& cajas = sesion.Pantallas().Messages();
  const bool preguntada = std::any_of(cajas.begin(), cajas.end(), [](const ui::MessageBox& caja) {
    return caja.buttons == ui::Buttons::kYesNo;
  });
  if (preguntada) mensajes << "kvraedi: indique --dudosas reenviar o --dudosas registrar\n";
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

int Enviar(const Argumentos& argumentos, const Salida& salida, PantallaEnvio& pantalla,
           SesionCli& sesion) {
  if (!Seleccionar(argumentos, salida.mensajes, pantalla, sesion)) return kRechazado;
  const ui::Grid& lista = pantalla.Lista();
  const std::vector<int> marcadas = Marcadas(lista);
  ResolverFacturasDudosas(argumentos.dudosas);
  pantalla.Aceptar();
  AvisarDudosas(sesion, salida.mensajes);
  std::vector<int> enviadas;
  for (const int fila : marcadas) {
    if (!lista.IsSet(fila, kSeleccion)) enviadas.push_back(fila);
  }
  const ResultadoEnvio& resultado = UltimoResultadoEnvio();
  // A summary goes to one file for all the invoices of the range, and their rows stay as they are.
  if (resultado.resumen.empty()) {
    EscribirEnviadas(lista, enviadas, sesion, salida.resultado);
  } else {
    salida.resultado << "Mensaje resumen añadido a: " << resultado.resumen.string() << '\n';
  }
  return resultado.completo ? kHecho : kRechazado;
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
  ComprobarSeleccion(argumentos);
  return UsarPantallaEnvio(argumentos, salida, [&](PantallaEnvio& pantalla, SesionCli& sesion) {
    return Enviar(argumentos, salida, pantalla, sesion);
  });
}

}  // namespace kvraedi::cli
