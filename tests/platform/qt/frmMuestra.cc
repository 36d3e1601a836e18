#include "tests/platform/qt/frmMuestra.h"

#include <array>
#include <sstream>

#include "kvraedi/error.h"
#include "kvraedi/ui/toolkit.h"

namespace kvraedi::prueba {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, frmMuestra::kColumnas> kColumnasMuestra = {{
    {"", 400, Alignment::kCenter, false, true},
    {"Nº", 700, Alignment::kRight},
    {"Cliente", 900, Alignment::kRight},
    {"Cliente", 3000},
    {"Clave", 900, Alignment::kLeft, true},
    {"Excluida", 1000, Alignment::kCenter, false, true},
}};

/// Knows the customers 1 to 9; "falla" is a database that does not answer.
class Clientes : public ui::PickerSource {
 public:
  ui::PickerValue Resolve(std::string_view typed) override {
    if (typed == "falla") throw Error(kErrorDatabase, "prueba", "No hay conexión");
    if (typed.size() != 1 || typed[0] < '1' || typed[0] > '9')
      return {false, std::string(typed), "", {}};
    return {
        true, std::string(typed), "Cliente <b>" + std::string(typed) + "</b>", {typed[0] - '0'}};
  }
  std::optional<std::string> Search(std::string_view typed, ui::Form& /*owner*/) override {
    if (typed == "9") return std::nullopt;
    return "7";
  }
};

}  // namespace

frmElegir::frmElegir() : Form("frmElegir", "Elegir") {
  SetLayout(ui::Row({txtValor, cmdTomar}));
  cmdTomar.onClick = [this] {
    elegido = txtValor.Text();
    Unload();
  };
}

frmMuestra::frmMuestra(std::vector<std::string>& diario)
    : Form("frmMuestra", "Muestra de controles"), diario_(diario) {
  Disponer();
  Escuchar();
}

void frmMuestra::Disponer() {
  using ui::Row;
  SetLayout(ui::Column({
      ui::Aligned({Row({lblNombre, txtNombre, lblFecha, txtFecha}),
                   Row({lblCliente, txtCliente, lblNumero, txtNumero}),
                   Row({lblEstado, ui::Space(), lblClase, cboClase})}),
      chkTodas,
      vsLineas,
      Row({ui::Space(), cmdAceptar, cmdElegir, cmdApagado, cmdCerrar}),
  }));
}

void frmMuestra::Escuchar() {
  txtFecha.onEnter = [this] {
    diario_.push_back("intro en fecha: " + txtFecha.Text());
    AnadirLineas(3);
  };
  cboClase.onClick = [this] { diario_.push_back("clase " + std::to_string(cboClase.ListIndex())); };
  chkTodas.onClick = [this] {
    vsLineas.SetRedraw(false);
    for (int fila = 1; fila < vsLineas.Rows(); ++fila) {
      vsLineas.SetCell(fila, kMarca, chkTodas.Value() ? "1" : "0");
    }
    vsLineas.SetRedraw(true);
  };
  vsLineas.onClick = [this](int fila, int columna) { Clic(fila, columna); };
  cmdAceptar.onClick = [this] { Aceptar(); };
  cmdElegir.onClick = [this] { Elegir(); };
  cmdApagado.onClick = [this] { diario_.push_back("apagado"); };
  cmdCerrar.onClick = [this] { Unload(); };
}

void frmMuestra::OnLoad() {
  for (const char* clase : {"Una", "Otra", "Ninguna"}) cboClase.AddItem(clase);
  cboClase.SetListIndex(0);
  txtCliente.SetSource(std::make_unique<Clientes>());
  vsLineas.SetColumns(kColumnasMuestra);
  cmdApagado.SetEnabled(false);
  txtNombre.SetFocus();
}

void frmMuestra::AnadirLineas(int cuantas) {
  vsLineas.SetRedraw(false);
  for (int linea = 0; linea < cuantas; ++linea) {
    const std::string numero = std::to_string(vsLineas.Rows());
    const std::array<std::string_view, kColumnas> celdas = {
        "0", numero, numero, "Suministros Peña & Hijos", "clave", "0"};
    vsLineas.AddRow(celdas);
  }
  vsLineas.SetRedraw(true);
}

void frmMuestra::Clic(int fila, int columna) {
  diario_.push_back("clic " + std::to_string(fila) + "," + std::to_string(columna));
  if (fila == 0 || (columna != kMarca && columna != kExcluida)) return;
  vsLineas.SetCell(fila, columna, vsLineas.IsSet(fila, columna) ? "0" : "1");
}

void frmMuestra::Aceptar() {
  if (txtNombre.Text() == "error") throw Error(kErrorDatabase, "prueba", "Nada va <i>bien</i>");
  const ui::Answer respuesta = ui::CurrentToolkit().Show({.text = "¿Borrar las líneas?",
                                                          .title = "¡ Atención !",
                                                          .icon = ui::Icon::kQuestion,
                                                          .buttons = ui::Buttons::kYesNo,
                                                          .preset = ui::Answer::kNo});
  diario_.push_back(respuesta == ui::Answer::kYes ? "sí" : "no");
  if (respuesta == ui::Answer::kYes) vsLineas.Reset();
  txtNumero.SetFocus();
}

void frmMuestra::Elegir() {
  const auto hija = std::make_shared<frmElegir>();
  hija->Show(ui::ShowMode::kModal, this);
  lblEstado.SetCaption("Elegido: " + hija->elegido);
}

std::string frmMuestra::Retrato() const {
  int marcadas = 0;
  int excluidas = 0;
  for (int fila = 1; fila < vsLineas.Rows(); ++fila) {
    marcadas += vsLineas.IsSet(fila, kMarca) ? 1 : 0;
    excluidas += vsLineas.IsSet(fila, kExcluida) ? 1 : 0;
  }
  std::ostringstream retrato;
  retrato << txtNombre.Text() << ';' << txtFecha.Text() << ';' << txtNumero.Text() << ';'
          << txtCliente.Text() << ';' << cboClase.Text() << ';' << ActiveControl()->Name()
          << "; fila " << vsLineas.Row() << " de " << vsLineas.Rows() - 1 << ", " << marcadas
          << " marcadas, " << excluidas << " excluidas";
  return retrato.str();
}

}  // namespace kvraedi::prueba
