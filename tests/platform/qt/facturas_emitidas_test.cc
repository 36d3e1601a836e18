#include "kvraedi/clsFacturacionEmision.h"
#include "kvraedi/ui/form.h"
#include "tests/apoyo/escenario.h"
#include "tests/platform/qt/usuario_qt.h"

namespace kvraedi::prueba {
namespace {

using Lineas = std::vector<std::string>;

/// The list of issued invoices on a real screen.
class FacturasEmitidas : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &usuario.Pantallas(), .suite = &suite});
    for (int codigo = 1; codigo <= 4; ++codigo) InsertarFactura(codigo);
    base->Execute("UPDATE Facturas SET ExcluirEDI = 1 WHERE Codigo = 4");
    clase.Show(0, nullptr);
  }
  void TearDown() override {
    for (const char* nombre : {"frmEnvioFactura", "frmMsg"}) {
      if (ui::Form* form = usuario.Ventana(nombre)) form->Unload();
    }
    Escenario::TearDown();
  }

  /// Selection, sent, number and exclusion of every row.
  Lineas Filas() {
    const auto& lista =
        dynamic_cast<ui::Grid&>(*usuario.Ventana("frmEnvioFactura")->Find("vsDocs"));
    Lineas filas;
    for (int fila = 1; fila < lista.Rows(); ++fila) {
      std::string texto;
      for (const int columna : {0, 1, 3, 11}) texto.append(lista.Cell(fila, columna)).append(";");
      filas.push_back(texto);
    }
    return filas;
  }

  UsuarioQt usuario;
  clsFacturacionEmision clase;
};

TEST_F(FacturasEmitidas, MarcarExcluirYTransmitir) {
  ui::Form& form = *usuario.Ventana("frmEnvioFactura");
  usuario.Escribe(form, "txtFechaI", "01/01/2024");
  usuario.Escribe(form, "txtFechaF", "31/12/2024");
  usuario.Intro(form, "txtFechaF");
  EXPECT_EQ(Filas(), (Lineas{"0;;1;0;", "0;;2;0;", "0;;3;0;", "0;;4;1;"}));
  for (const auto& [fila, columna] :
       {std::pair(1, 0), {2, 0}, {2, 11}, {2, 0}, {4, 0}, {3, 6}, {0, 0}}) {
    usuario.Celda(form, "vsDocs", fila, columna);
  }
  EXPECT_EQ(Filas(), (Lineas{"1;;1;0;", "0;;2;1;", "0;;3;0;", "0;;4;1;"}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Facturas WHERE ExcluirEDI = 1"), 2);

  usuario.Pulsa(form, "cmdAceptar");
  EXPECT_EQ(form.ActiveControl()->Name(), "txtCliente");
  usuario.Escribe(form, "txtCliente", "100");
  usuario.Pulsa(form, "chkSelelecion_vsDocs");
  usuario.Pulsa(form, "cmdAceptar");
  EXPECT_EQ(Filas(), (Lineas{"0;X;1;0;", "0;;2;1;", "0;X;3;0;", "0;;4;1;"}));
  usuario.Elige(form, "cboEstado", 2);
  EXPECT_EQ(Filas(), (Lineas{"0;;2;1;", "0;;4;1;"}));
  EXPECT_EQ(usuario.Mensajes(),
            (Lineas{"¡ Atención !|Se esperaba código de cliente.|1",
                    "¡ Atención !|El/los fichero/s INVOIC se han generado correctamente.|1"}));
  usuario.Pulsa(form, "cmdCancelar");
  EXPECT_EQ(usuario.Ventana("frmEnvioFactura"), nullptr);
}

}  // namespace
}  // namespace kvraedi::prueba
