#include "host/cli/visor_factura.h"

#include <ostream>

#include "host/cli/al_abrir.h"
#include "host/cli/controles.h"
#include "host/cli/tabla.h"

namespace kvraedi::cli {
namespace {

constexpr int kDto = 6;  // the column of vsLineas that marks lines with discounts

constexpr ColumnaTabla kLineas[] = {
    {"Linea", Celda<0>, true},    {"Código", Celda<1>},        {"Descripción", Celda<2>},
    {"Cantidad", Celda<3>, true}, {"Neto", Celda<4>, true},    {"Bruto", Celda<5>, true},
    {"Dto", Celda<kDto>},         {"Importe", Celda<7>, true},
};

constexpr ColumnaTabla kDescuentos[] = {
    {"Número", Celda<0>, true},   {"Indicador", Celda<1>}, {"Dto %", Celda<2>, true},
    {"Dto Imp.", Celda<3>, true}, {"Tipo", Celda<4>},
};

struct Rotulo {
  const char* etiqueta;
  const char* titulo;
};

constexpr Rotulo kRotulos[] = {
    {"lblMensaje", "Mensaje"},
    {"lblTipo", "Tipo"},
    {"lblNumero", "Número"},
    {"lblFuncion", "Estado"},
    {"lblFecha", "Fecha"},
    {"lblGLN", "Emisor"},
    {"lblNombre", "Nombre"},
    {"lblNIF", "NIF"},
    {"lblDireccion", "Dirección"},
    {"lblCiudad", "Ciudad"},
    {"lblCP", "CP"},
    {"lblNeto", "Importe neto"},
    {"lblBase", "Base imponible"},
    {"lblImpuestos", "Impuestos"},
    {"lblTotal", "Total"},
};

void EscribirDescuentosLinea(ui::Form& visor, int fila, HeadlessToolkit& pantallas,
                             std::ostream& salida) {
  Buscar<ui::Grid>(visor, "vsLineas").MoveTo(fila);
  const auto listar = [&](ui::Form& descuentos) {
    salida << "\nDescuentos de la línea " << fila << '\n';
    EscribirTabla(Buscar<ui::Grid>(descuentos, "vsDescuentos"), kDescuentos, salida);
  };
  AlAbrir(pantallas, "frmVisorFactura_DescLineas", listar,
          [&] { Buscar<ui::Button>(visor, "cmdDescLinea").Press(); });
}

}  // namespace

void EscribirFactura(ui::Form& visor, HeadlessToolkit& pantallas, std::ostream& salida) {
  for (const auto& [etiqueta, titulo] : kRotulos) {
    salida << titulo << ": " << Buscar<ui::Label>(visor, etiqueta).Caption() << '\n';
  }
  const auto& observaciones = Buscar<ui::TextArea>(visor, "txtObservaciones").Text();
  if (!observaciones.empty()) salida << "Observaciones: " << observaciones << '\n';
  const auto& lineas = Buscar<ui::Grid>(visor, "vsLineas");
  salida << '\n';
  EscribirTabla(lineas, kLineas, salida);
  for (int fila = 1; fila < lineas.Rows(); ++fila) {
    if (lineas.Cell(fila, kDto) == "+") EscribirDescuentosLinea(visor, fila, pantallas, salida);
  }
  const auto& descuentos = Buscar<ui::Grid>(visor, "vsDescuentos");
  if (descuentos.Rows() == 1) return;
  salida << "\nDescuentos generales\n";
  EscribirTabla(descuentos, kDescuentos, salida);
}

}  // namespace kvraedi::cli
