#include <array>
#include <functional>
#include <ostream>

#include "host/cli/al_abrir.h"
#include "host/cli/controles.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "host/cli/tabla.h"
#include "host/cli/visor_factura.h"
#include "kvraedi/frmclsFacturacionRecepcion.h"
#include "kvraedi/ui/report_viewer.h"

namespace kvraedi::cli {
namespace {

/// Columns of the list vsDocs.
enum Columna : int {
  kDocumento,
  kFecha,
  kProveedor,
  kProveedorNombre,
  kImporte,
  kUsuario,
  kUsuarioNombre,
  kObservaciones,
  kMensaje,
  kPlataforma,
  kTipoMensaje,
  kColumnas
};

constexpr std::array<std::string_view, kColumnas> kNombresJson = {
    "factura",        "fecha",         "proveedor", "proveedor_nombre", "importe",     "usuario",
    "usuario_nombre", "observaciones", "mensaje",   "plataforma",       "tipo_mensaje"};

constexpr ColumnaTabla kTabla[] = {
    {"Factura", Celda<kDocumento>, true},     {"Fecha", Celda<kFecha>},
    {"Prov.", Celda<kProveedor>, true},       {"Nombre", Celda<kProveedorNombre>},
    {"Importe", Celda<kImporte>, true},       {"Visado", Celda<kUsuarioNombre>},
    {"Observaciones", Celda<kObservaciones>}, {"Mensaje", Celda<kMensaje>},
};

/// The user at the screen frmRecepcionFactura, with the list loaded.
struct Recepcion {
  ui::Form& form;
  ui::Grid& lista;
  HeadlessToolkit& pantallas;

  void Pulsar(const char* boton) const { Buscar<ui::Button>(form, boton).Press(); }
  std::string Texto(Columna columna) const { return CeldaPlana(lista, lista.Row(), columna); }
  void Elegir(const std::string& mensaje) const {
    for (int fila = 1; fila < lista.Rows(); ++fila) {
      if (lista.Cell(fila, kMensaje) == mensaje) return lista.Click(fila, kDocumento);
    }
    throw Fallo(kRechazado, "el mensaje «" + mensaje + "» no está en la lista");
  }
};

/// Types a date of the filters; the screen itself would list without a bound that is no date.
FechaHora TeclearFecha(ui::DateBox& caja, const std::string& fecha, const char* cual) {
  caja.Type(fecha);
  const auto leida = FechaHora::Parse(caja.Text());
  if (leida && !caja.Text().empty()) return *leida;
  throw Fallo(kRechazado, "debe indicar una fecha " + std::string(cual) +
                              " válida, dd/mm/aaaa, no «" + fecha + "»");
}

bool Cargar(ui::Form& form, const Argumentos& argumentos, const HeadlessToolkit& pantallas) {
  if (!pantallas.Messages().empty()) return false;
  if (argumentos.recibida.proveedor) {
    auto& proveedor = Buscar<ui::Picker>(form, "txtProveedor");
    proveedor.Type(std::to_string(*argumentos.recibida.proveedor));
  }
  auto& txtFechaF = Buscar<ui::DateBox>(form, "txtFechaF");
  const FechaHora desde =
      TeclearFecha(Buscar<ui::DateBox>(form, "txtFechaI"), argumentos.desde, "inicial");
  if (TeclearFecha(txtFechaF, argumentos.hasta, "final") < desde) {
    throw Fallo(kRechazado, "la fecha inicial no puede ser mayor que la final");
  }
  txtFechaF.PressEnter();
  return pantallas.Messages().empty();
}

/// Opens the list for the filters of the command line and lets the user that `pasos` describes work
/// on it. A message of the component makes the result a refusal.
int UsarRecepcion(const Argumentos& argumentos, const Salida& salida,
                  const std::function<void(const Recepcion&)>& pasos) {
  SesionCli sesion(argumentos, salida.mensajes);
  HeadlessToolkit& pantallas = sesion.Pantallas();
  sesion.Usar<frmclsFacturacionRecepcion>("frmRecepcionFactura", [&](ui::Form& form) {
    if (Cargar(form, argumentos, pantallas)) {
      pasos({form, Buscar<ui::Grid>(form, "vsDocs"), pantallas});
    }
  });
  return pantallas.Messages().empty() ? kHecho : kRechazado;
}

/// Opens the invoice that the command line names in the viewer, for that user.
int UsarVisor(const Argumentos& argumentos, const Salida& salida,
              const std::function<void(ui::Form&, HeadlessToolkit&)>& pasos) {
  return UsarRecepcion(argumentos, salida, [&](const Recepcion& recepcion) {
    recepcion.Elegir(argumentos.recibida.mensaje);
    AlAbrir(
        recepcion.pantallas, "frmVisorFactura",
        [&](ui::Form& visor) { pasos(visor, recepcion.pantallas); },
        [&] { recepcion.Pulsar("cmdVisualizar"); });
  });
}

}  // namespace

int EjecutarRecibidasListar(const Argumentos& argumentos, const Salida& salida) {
  return UsarRecepcion(argumentos, salida, [&](const Recepcion& recepcion) {
    if (argumentos.json) {
      EscribirJson(recepcion.lista, kNombresJson, salida.resultado);
    } else {
      EscribirTabla(recepcion.lista, kTabla, salida.resultado);
    }
  });
}

int EjecutarRecibidasVisar(const Argumentos& argumentos, const Salida& salida) {
  return UsarRecepcion(argumentos, salida, [&](const Recepcion& recepcion) {
    recepcion.Elegir(argumentos.recibida.mensaje);
    const bool antes = !recepcion.Texto(kUsuario).empty();
    recepcion.Pulsar("cmdVisado");
    if (recepcion.Texto(kUsuario).empty()) return;
    salida.resultado << "Factura " << recepcion.Texto(kDocumento)
                     << (antes ? ", visada ya por " : ", visada por ")
                     << recepcion.Texto(kUsuarioNombre) << '\n';
  });
}

int EjecutarRecibidasComentar(const Argumentos& argumentos, const Salida& salida) {
  return UsarRecepcion(argumentos, salida, [&](const Recepcion& recepcion) {
    recepcion.Elegir(argumentos.recibida.mensaje);
    const auto escribir = [&](ui::Form& editor) {
      constexpr int kAceptar = 9;
      Buscar<ui::TextArea>(editor, "txtComent").Type({});
      Buscar<ui::TextArea>(editor, "txtComent").Type(argumentos.recibida.texto);
      editor.PressFunctionKey(kAceptar);
    };
    AlAbrir(recepcion.pantallas, "frmEditor_Comentarios", escribir,
            [&] { recepcion.Pulsar("cmdObservaciones"); });
    if (!recepcion.pantallas.Messages().empty()) return;
    salida.resultado << "Factura " << recepcion.Texto(kDocumento)
                     << ", observaciones: " << recepcion.Texto(kObservaciones) << '\n';
  });
}

int EjecutarRecibidasVer(const Argumentos& argumentos, const Salida& salida) {
  return UsarVisor(argumentos, salida, [&](ui::Form& visor, HeadlessToolkit& pantallas) {
    EscribirFactura(visor, pantallas, salida.resultado);
  });
}

int EjecutarRecibidasImprimir(const Argumentos& argumentos, const Salida& salida) {
  const auto& pdf = argumentos.recibida.pdf;
  const int codigo =
      UsarVisor(argumentos, salida, [&](ui::Form& visor, HeadlessToolkit& pantallas) {
        const auto imprimir = [&](ui::Form& vista) {
          auto& informe = Buscar<ui::ReportViewer>(vista, "crvRep");
          if (pdf) {
            informe.Save(*pdf);
          } else {
            informe.Print();
          }
        };
        AlAbrir(pantallas, "frmView", imprimir,
                [&] { Buscar<ui::Button>(visor, "cmdImprimir").Press(); });
      });
  if (codigo == kHecho) salida.resultado << "Factura impresa" << (pdf ? ": " + *pdf : "") << '\n';
  return codigo;
}

}  // namespace kvraedi::cli
