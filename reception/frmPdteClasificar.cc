#include "reception/frmPdteClasificar.h"

#include <array>
#include <string>
#include <vector>

#include "frame/accion.h"
#include "frame/celda.h"
#include "frame/sesion.h"

namespace kvraedi {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, 8> kColumnas = {{
    {"Fichero", 2600, Alignment::kLeft, false, false, "Fichero"},
    {"GLN", 1300, Alignment::kRight, false, false, "Proveedor"},
    {"Nombre", 2050, Alignment::kLeft, false, false, "Proveedor"},
    {"GLN", 1300, Alignment::kRight, false, false, "Comprador"},
    {"Nombre", 2050, Alignment::kLeft, false, false, "Comprador"},
    {"F. Recepción", 1300, Alignment::kCenter, false, false, "F. Recepción"},
    {"", 0, Alignment::kLeft, true},
    {"", 0, Alignment::kLeft, true},
}};

constexpr std::size_t kRecepcion = 5;
constexpr int kAnchoConHora = 2000;

using Celdas = std::array<std::string, kColumnas.size()>;

Celdas LeerFila(const Recordset& rs) {
  const auto texto = [&](std::string_view campo) { return rs.GetOrEmpty<std::string>(campo); };
  return {texto("EDIFichero"),    texto("GLN"),           texto("Proveedor"),
          texto("GLN_Comprador"), texto("Comprador"),     CeldaFecha(rs, "EDIFechaRecepcion"),
          texto("Cod_EDIPlat"),   texto("Cod_EDITipoMsg")};
}

/// The columns for these rows: dates with a time need more room.
auto ColumnasPara(const std::vector<Celdas>& filas) {
  constexpr std::size_t kSoloFecha = 10;
  auto columnas = kColumnas;
  for (const Celdas& fila : filas) {
    if (fila[kRecepcion].size() > kSoloFecha) columnas[kRecepcion].width = kAnchoConHora;
  }
  return columnas;
}

}  // namespace

frmPdteClasificar::frmPdteClasificar()
    : Form("frmPdteClasificar", "Ficheros pendientes de clasificar") {
  SetLayout(ui::Column({vsDocs, ui::Row({ui::Space(), cmdSalir})}));
  cmdSalir.onClick = [this] { Unload(); };
}

void frmPdteClasificar::OnLoad() {
  vsDocs.SetColumns(kColumnas);
  Cargar();
}

void frmPdteClasificar::Cargar() {
  Accion("frmPdteClasificar:Cargar", [&] {
    const auto rs = ConexionActual().Open(
        " SELECT EDIFichero, EDIFechaRecepcion, Cod_EDIPlat, Cod_EDITipoMsg, GLN, Proveedor, "
        "GLN_Comprador, Comprador "
        " FROM EDI_PdteClasificar ef ORDER BY EDIFechaRecepcion DESC");
    std::vector<Celdas> filas;
    for (; !rs->Eof(); rs->MoveNext()) filas.push_back(LeerFila(*rs));
    const ui::RedrawPause pause(vsDocs);
    vsDocs.SetColumns(ColumnasPara(filas));
    for (const Celdas& fila : filas) {
      vsDocs.AddRow(std::vector<std::string_view>(fila.begin(), fila.end()));
    }
  });
}

}  // namespace kvraedi
