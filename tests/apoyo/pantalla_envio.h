#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kvraedi/clsFacturacionEmision.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {

/// The open invoice list, used as a person uses it.
class PantallaEnvio : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    clase.emplace();
    clase->Show(0, nullptr);
  }
  void TearDown() override {
    clase.reset();
    Escenario::TearDown();
  }

  template <class C>
  C& Control(std::string_view nombre) {
    return dynamic_cast<C&>(*toolkit.OpenForm("frmEnvioFactura")->Find(nombre));
  }
  ui::Grid& Lista() { return Control<ui::Grid>("vsDocs"); }

  void Listar(std::string_view desde = "01/01/2024", std::string_view hasta = "31/12/2024") {
    Control<ui::DateBox>("txtFechaI").Type(desde);
    Control<ui::DateBox>("txtFechaF").Type(hasta);
    Control<ui::DateBox>("txtFechaF").PressEnter();
  }
  void Enviar() { Control<ui::Button>("cmdAceptar").Press(); }

  /// One column of the list, from top to bottom.
  std::vector<std::string> Columna(int columna) {
    std::vector<std::string> celdas;
    for (int fila = 1; fila < Lista().Rows(); ++fila)
      celdas.emplace_back(Lista().Cell(fila, columna));
    return celdas;
  }

  std::optional<clsFacturacionEmision> clase;
};

using Celdas = std::vector<std::string>;

}  // namespace kvraedi
