#include "kvraedi/clsFacturacionEmision.h"
#include "kvraedi/ui/form.h"
#include "tests/apoyo/escenario.h"
#include "tests/platform/qt/usuario_headless.h"
#include "tests/platform/qt/usuario_qt.h"

namespace kvraedi::prueba {
namespace {

using Lineas = std::vector<std::string>;

/// The list of issued invoices, used by the same person on both kinds of screen.
template <class QueUsuario>
class FacturasEmitidas : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &usuario_.Pantallas(), .suite = &suite});
    for (int codigo = 1; codigo <= 4; ++codigo) InsertarFactura(codigo);
    base->Execute("UPDATE Facturas SET ExcluirEDI = 1 WHERE Codigo = 4");
    clase_.Show(0, nullptr);
  }
  void TearDown() override {
    for (const char* nombre : {"frmEnvioFactura", "frmMsg"}) {
      if (ui::Form* form = usuario_.Ventana(nombre)) form->Unload();
    }
    Escenario::TearDown();
  }

  ui::Form& Pantalla() { return *usuario_.Ventana("frmEnvioFactura"); }
  void Lista(const std::string& desde, const std::string& hasta) {
    usuario_.Escribe(Pantalla(), "txtFechaI", desde);
    usuario_.Escribe(Pantalla(), "txtFechaF", hasta);
    usuario_.Intro(Pantalla(), "txtFechaF");
  }
  /// Selection, sent, number and exclusion of every row.
  Lineas Filas() {
    const auto& lista = dynamic_cast<ui::Grid&>(*Pantalla().Find("vsDocs"));
    Lineas filas;
    for (int fila = 1; fila < lista.Rows(); ++fila) {
      std::string texto;
      for (const int columna : {0, 1, 3, 11}) texto.append(lista.Cell(fila, columna)).append(";");
      filas.push_back(texto);
    }
    return filas;
  }

  QueUsuario usuario_;
  clsFacturacionEmision clase_;
};

using Usuarios = testing::Types<UsuarioHeadless, UsuarioQt>;
TYPED_TEST_SUITE(FacturasEmitidas, Usuarios);

TYPED_TEST(FacturasEmitidas, LasFechasErroneasNoCarganNada) {
  this->Lista("", "");
  this->Lista("01/01/2024", "");
  this->Lista("01/01/2024", "31/02/2024");
  this->Lista("01/01/2024", "31/12/2023");
  EXPECT_EQ(this->usuario_.Mensajes(),
            (Lineas{"¡Atención!|Debe indicar una Fecha Inicial Válida|1",
                    "¡Atención!|Debe indicar una Fecha Final Válida|1",
                    "¡Atención!|Debe indicar una Fecha Válida|1",
                    "¡Atención!|La Fecha Inicial no puede ser mayor a la Fecha Final|1"}));
  EXPECT_EQ(this->Pantalla().ActiveControl()->Name(), "txtFechaF");
  EXPECT_EQ(this->Filas(), Lineas{});
}

TYPED_TEST(FacturasEmitidas, MarcarExcluirYTransmitir) {
  Usuario& usuario = this->usuario_;
  this->Lista("01/01/2024", "31/12/2024");
  ui::Form& form = this->Pantalla();
  EXPECT_EQ(this->Filas(), (Lineas{"0;;1;0;", "0;;2;0;", "0;;3;0;", "0;;4;1;"}));

  usuario.Celda(form, "vsDocs", 1, 0);
  usuario.Celda(form, "vsDocs", 2, 0);
  usuario.Celda(form, "vsDocs", 2, 11);
  usuario.Celda(form, "vsDocs", 2, 0);
  usuario.Celda(form, "vsDocs", 4, 0);
  usuario.Celda(form, "vsDocs", 3, 6);
  usuario.Celda(form, "vsDocs", 0, 0);
  EXPECT_EQ(this->Filas(), (Lineas{"1;;1;0;", "0;;2;1;", "0;;3;0;", "0;;4;1;"}));
  EXPECT_EQ(this->Contar("SELECT COUNT(*) FROM Facturas WHERE ExcluirEDI = 1"), 2);

  usuario.Pulsa(form, "cmdAceptar");
  EXPECT_EQ(form.ActiveControl()->Name(), "txtCliente");
  usuario.Escribe(form, "txtCliente", "100");
  usuario.Pulsa(form, "chkSelelecion_vsDocs");
  EXPECT_EQ(this->Filas(), (Lineas{"1;;1;0;", "0;;2;1;", "1;;3;0;", "0;;4;1;"}));
  usuario.Pulsa(form, "cmdAceptar");
  EXPECT_EQ(this->Filas(), (Lineas{"0;X;1;0;", "0;;2;1;", "0;X;3;0;", "0;;4;1;"}));
  usuario.Elige(form, "cboEstado", 2);
  EXPECT_EQ(this->Filas(), (Lineas{"0;;2;1;", "0;;4;1;"}));
  EXPECT_EQ(usuario.Mensajes(),
            (Lineas{"¡ Atención !|Se esperaba código de cliente.|1",
                    "¡ Atención !|El/los fichero/s INVOIC se han generado correctamente.|1"}));
}

TYPED_TEST(FacturasEmitidas, CerradaVuelveVacia) {
  this->Lista("01/01/2024", "31/12/2024");
  this->clase_.Show(0, nullptr);
  EXPECT_EQ(this->Filas().size(), 4U);
  this->usuario_.Pulsa(this->Pantalla(), "cmdCancelar");
  EXPECT_EQ(this->usuario_.Ventana("frmEnvioFactura"), nullptr);
  this->clase_.Show(0, nullptr);
  EXPECT_EQ(this->Filas(), Lineas{});
  this->usuario_.Cierra(this->Pantalla());
  EXPECT_EQ(this->usuario_.Ventana("frmEnvioFactura"), nullptr);
}

}  // namespace
}  // namespace kvraedi::prueba
