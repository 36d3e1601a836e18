#include <functional>
#include <ostream>

#include "host/cli/al_abrir.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/pantalla_anexos.h"
#include "host/cli/pantalla_envio.h"
#include "host/cli/sesion_cli.h"

namespace kvraedi::cli {
namespace {

using Pasos = std::function<void(PantallaAnexos&, HeadlessToolkit&)>;

void Escribir(const ui::Grid& anexos, const std::string& clave, std::ostream& salida) {
  salida << "Anexos de " << clave << ": " << anexos.Rows() - 1 << '\n';
  for (int fila = 1; fila < anexos.Rows(); ++fila) {
    salida << "  " << anexos.Cell(fila, 0) << '\t' << anexos.Cell(fila, 1) << '\n';
  }
}

/// What the user does at the screen of attachments. A message of the component ends it.
void Trabajar(PantallaAnexos& pantalla, HeadlessToolkit& pantallas, const Pasos& pasos,
              const std::string& clave, const Salida& salida) {
  const auto sinMensajes = [&] { return pantallas.Messages().empty(); };
  if (sinMensajes()) pasos(pantalla, pantallas);
  if (!sinMensajes()) return;
  Escribir(pantalla.Lista(), clave, salida.resultado);
  pantalla.Salir();
}

/// Opens the attachments of the invoice that the command line names, lets the user that `pasos`
/// describes work on them, and tells what is left.
int UsarAnexos(const Argumentos& argumentos, const Salida& salida, const Pasos& pasos) {
  return UsarPantallaEnvio(argumentos, salida, [&](PantallaEnvio& envio, SesionCli& sesion) -> int {
    if (!envio.Cargar(argumentos)) return kRechazado;
    HeadlessToolkit& pantallas = sesion.Pantallas();
    const ClaveFactura& clave = argumentos.claves.front();
    const int fila = FilaDe(envio.Lista(), clave);
    const auto trabajar = [&](ui::Form& form) {
      PantallaAnexos pantalla(form);
      Trabajar(pantalla, pantallas, pasos, clave.Texto(), salida);
    };
    AlAbrir(pantallas, "frmAnexosFactura", trabajar, [&] { envio.Anexar(fila); });
    return pantallas.Messages().empty() ? kHecho : kRechazado;
  });
}

}  // namespace

int EjecutarAnexosListar(const Argumentos& argumentos, const Salida& salida) {
  return UsarAnexos(argumentos, salida, [](PantallaAnexos&, HeadlessToolkit&) {});
}

int EjecutarAnexosAnadir(const Argumentos& argumentos, const Salida& salida) {
  return UsarAnexos(argumentos, salida, [&](PantallaAnexos& pantalla, HeadlessToolkit& pantallas) {
    pantallas.QueueFile(argumentos.fichero);
    pantalla.Anadir(argumentos.descripcion);
  });
}

int EjecutarAnexosQuitar(const Argumentos& argumentos, const Salida& salida) {
  return UsarAnexos(argumentos, salida, [&](PantallaAnexos& pantalla, HeadlessToolkit&) {
    if (pantalla.Quitar(argumentos.nombre)) return;
    throw Fallo(kRechazado, "la factura " + argumentos.claves.front().Texto() +
                                " no tiene ningún anexo «" + argumentos.nombre + "»");
  });
}

}  // namespace kvraedi::cli
