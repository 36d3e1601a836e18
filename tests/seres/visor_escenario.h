#pragma once

#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "seres/frmVisorFactura.h"
#include "tests/apoyo/escenario.h"
#include "tests/seres/invoic_recibido.h"

namespace kvraedi {

/// The viewer over a file of the test.
class VisorEscenario : public Escenario {
 protected:
  void TearDown() override {
    if (visor) visor->Unload();
    visor.reset();
    Escenario::TearDown();
  }

  std::filesystem::path Escribir(std::string_view bytes) {
    std::ofstream(carpeta / "recibida.txt", std::ios::binary) << bytes;
    return carpeta / "recibida.txt";
  }
  void Abrir(const std::filesystem::path& fichero, std::int16_t plataforma = 2,
             std::int16_t tipoMensaje = 1) {
    visor = std::make_shared<frmVisorFactura>();
    visor->Fichero(fichero);
    visor->Plataforma(plataforma);
    visor->TipoMensaje(tipoMensaje);
    visor->Show();
  }

  template <class C>
  C& Control(std::string_view nombre) {
    return dynamic_cast<C&>(*visor->Find(nombre));
  }
  std::string Rotulo(std::string_view nombre) { return Control<ui::Label>(nombre).Caption(); }
  ui::Grid& Lineas() { return Control<ui::Grid>("vsLineas"); }

  static std::string Fila(const ui::Grid& grid, int fila) {
    std::string texto;
    for (int columna = 0; columna < grid.Cols(); ++columna) {
      texto.append(columna == 0 ? "" : "|").append(grid.Cell(fila, columna));
    }
    return texto;
  }
  /// The rows that the discounts of a line show; empty when their window does not open.
  std::vector<std::string> DescuentosDe(int fila) {
    std::vector<std::string> filas;
    toolkit.OnShow("frmVisorFactura_DescLineas", [&](ui::Form& form) {
      const auto& grid = dynamic_cast<const ui::Grid&>(*form.Find("vsDescuentos"));
      for (int i = 1; i < grid.Rows(); ++i) filas.push_back(Fila(grid, i));
      dynamic_cast<ui::Button&>(*form.Find("cmdSalir")).Press();
    });
    Lineas().MoveTo(fila);
    Control<ui::Button>("cmdDescLinea").Press();
    return filas;
  }

  std::shared_ptr<frmVisorFactura> visor;
};

}  // namespace kvraedi
