#include <gtest/gtest.h>

#include "dispatch/frmEnvioFactura.h"
#include "tests/apoyo/pantalla_envio.h"
#include "tests/apoyo/puertos_con_fallos.h"

namespace kvraedi {
namespace {

class ListaTest : public PantallaEnvio {
 protected:
  void InsertarTicket(int codigo, std::string_view excluir = "NULL") {
    const std::string clave = "1, 5, 2, '10/02/2024', " + std::to_string(codigo);
    base->Execute(
        "INSERT INTO TPV_Tickets (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Total)"
        " VALUES (" +
        clave + ", 12.3)");
    base->Execute(
        "INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente,"
        " Factura_Serie, Factura_Codigo, Factura_Almacen, Factura_TipoDoc, Factura_Fecha, Hora,"
        " ExcluirEDI) VALUES (" +
        clave + ", 100, 9, " + std::to_string(9000 + codigo) +
        ", 5, 0, '11/02/2024', '11/02/2024', " + std::string(excluir) + ")");
  }
};

TEST_F(ListaTest, WrongDatesAreToldOneByOne) {
  const struct {
    const char *desde, *hasta, *aviso, *foco;
  } casos[] = {{"", "", "¡Atención!|Debe indicar una Fecha Inicial Válida|1", "txtFechaI"},
               {"01/02/2024", "", "¡Atención!|Debe indicar una Fecha Final Válida|1", "txtFechaF"},
               {"31/02/2024", "01/03/2024", "¡Atención!|Debe indicar una Fecha Válida|1", nullptr},
               {"01/02/2024", "1/3/2024", "¡Atención!|Debe indicar una Fecha Válida|1", nullptr},
               {"02/02/2024", "01/02/2024",
                "¡Atención!|La Fecha Inicial no puede ser mayor a la Fecha Final|1", "txtFechaF"}};
  for (const auto& caso : casos) {
    Listar(caso.desde, caso.hasta);
    EXPECT_EQ(UltimoAviso(), caso.aviso);
    if (caso.foco != nullptr) {
      EXPECT_EQ(toolkit.OpenForm("frmEnvioFactura")->ActiveControl()->Name(), caso.foco);
    }
  }
  EXPECT_EQ(conexion->fallo.Operaciones(), 0) << "no statement may have been sent";
}

TEST_F(ListaTest, ShowsInvoicesAndTicketsWithTheirState) {
  InsertarFactura(1);
  InsertarFactura(2, "Fecha = '21/02/2024', Total = -1234.565, TipoDoc = 1, ExcluirEDI = 1");
  InsertarFactura(3, "Fecha = '01/01/2025'");
  InsertarTicket(7);
  base->Execute(
      "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_Empresa, Cod_Ejercicio, Serie,"
      " Codigo, TipoDoc) VALUES (2, 1, 2024, 3, 1, 0)");
  for (const char* nombre : {"a.pdf", "b.pdf"}) {
    base->Execute(
        "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio,"
        " Serie, Codigo, TipoDoc, NombreAnexo) VALUES (2, 1, 1, 2024, 3, 1, 0, '" +
        std::string(nombre) + "')");
  }
  Listar();
  const auto fila = [&](int n) {
    std::string celdas;
    for (int c = 0; c < Lista().Cols(); ++c) celdas.append(Lista().Cell(n, c)).append("|");
    return celdas;
  };
  ASSERT_EQ(Lista().Rows(), 4);
  EXPECT_EQ(fila(1),
            "0||3|2|21/02/2024|100|O'Donnell, S.A.|5|Almacén Sur|-1234,57|1|1|2024||FD|0|0|0||0|");
  EXPECT_EQ(fila(2),
            "0|X|3|1|20/02/2024|100|O'Donnell, S.A.|5|Almacén Sur|107,00|0|0|2024|X|FD|0|0|0||0|");
  EXPECT_EQ(fila(3),
            "0||9|9007|11/02/2024|100|O'Donnell, S.A.|5|Almacén Sur|12,30|0|0|0||FT|1|5|2|"
            "10/02/2024|7|");
  EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
  EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
}

TEST_F(ListaTest, FiltersAreCombined) {
  InsertarFactura(1);
  InsertarFactura(2);
  InsertarFactura(3);
  InsertarTicket(7);
  base->Execute(
      "INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Cad_Nivel_3)"
      " VALUES (1, 200, 'Otro', 5)");
  base->Execute("UPDATE Facturas SET Cliente = 200 WHERE Codigo = 3");
  for (const char* envio : {"2, 1, 2024, 3, 1, 0", "0, 1, 2024, 3, 2, 0"}) {
    base->Execute(
        "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_Empresa, Cod_Ejercicio, Serie,"
        " Codigo, TipoDoc) VALUES (" +
        std::string(envio) + ")");
  }
  base->Execute("INSERT INTO Cadenas VALUES (1, 3, 5, 'Grupo Norte')");
  const struct {
    const char *cliente, *cadena;
    int estado, tipo;
    Celdas facturas;
  } casos[] = {{"", "", 0, 0, {"1", "2", "3", "9007"}},
               {"", "", 1, 0, {"1", "2"}},
               {"", "", 2, 0, {"2", "3", "9007"}},
               {"", "", 0, 2, {"9007"}},
               {"100", "", 2, 1, {"2"}},
               {"200", "", 0, 0, {"3"}},
               {"", "0/0/5", 0, 0, {"3"}},
               {"100", "0/0/5", 0, 0, {}},
               {"99999", "", 0, 0, {}}};
  Listar();
  for (const auto& caso : casos) {
    Control<ui::Picker>("txtCliente").Type(caso.cliente);
    Control<ui::Picker>("txtCadena").Type(caso.cadena);
    Control<ui::ComboBox>("cboTipo").Choose(caso.tipo);
    Control<ui::ComboBox>("cboEstado").Choose(caso.estado);
    EXPECT_EQ(Columna(kFactura), caso.facturas) << caso.cliente << " " << caso.estado << caso.tipo;
    const bool conPlataforma = std::string_view(caso.cliente) == "100" && !caso.facturas.empty();
    EXPECT_EQ(Control<ui::Label>("lblPlataforma").Caption(), conPlataforma ? "SERES/INVOIC" : "/");
  }
}

TEST_F(ListaTest, ExclusionIsStoredAtOnceAndClearsTheSelection) {
  InsertarFactura(1);
  InsertarTicket(7);
  Listar();
  Lista().Click(0, kNoEnviar);
  for (const int fila : {1, 2}) {
    Lista().Click(fila, kSeleccion);
    Lista().Click(fila, kNoEnviar);
    Lista().Click(fila, kSeleccion);
    Lista().Click(fila, kTipo);
  }
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0"}));
  EXPECT_EQ(Columna(kNoEnviar), (Celdas{"1", "1"}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Facturas WHERE ExcluirEDI = 1"), 1);
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM TPV_Tickets_Factura WHERE ExcluirEDI = 1"), 1);
  Lista().Click(2, kNoEnviar);
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM TPV_Tickets_Factura WHERE ExcluirEDI = 1"), 0);
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0"}));
  conexion->fallo.FallarEn(1);
  Lista().Click(1, kNoEnviar);
  EXPECT_EQ(UltimoAviso(), "frmEnvioFactura:Cargar|Conexión perdida|3");
  EXPECT_EQ(Columna(kNoEnviar), (Celdas{"1", "0"})) << "the cell shows what is stored";
}

TEST_F(ListaTest, SelectAllTakesPendingRowsOnly) {
  InsertarFactura(1);
  InsertarFactura(2, "ExcluirEDI = 1");
  InsertarFactura(3);
  base->Execute(
      "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_Empresa, Cod_Ejercicio, Serie,"
      " Codigo, TipoDoc) VALUES (2, 1, 2024, 3, 3, 0)");
  Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle();
  Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle();
  Listar();
  Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle();
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"1", "0", "0"}));
  Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle();
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0", "0"}));
}

TEST_F(ListaTest, ADatabaseErrorKeepsTheListAndHidesTheMessage) {
  InsertarFactura(1);
  Listar();
  conexion->fallo.FallarEn(1);
  Listar();
  EXPECT_EQ(UltimoAviso(), "frmEnvioFactura:Cargar|Conexión perdida|3");
  EXPECT_EQ(Columna(kFactura), Celdas{"1"});
  EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
}

TEST_F(ListaTest, OneAmountThatCannotBeReadDoesNotHideTheOthers) {
  InsertarFactura(1, "Total = NULL");
  InsertarFactura(2, "Total = 1000");
  InsertarFactura(3);
  base->Execute("UPDATE Clientes SET Cod_EDIPlat_Fra = NULL");
  const auto absurda = std::make_shared<ImportesAbsurdos>(base);
  clase->ConexionKestrova(absurda);
  Listar();
  EXPECT_EQ(Columna(kImporte), (Celdas{"", "no válido", "107,00"}));
  EXPECT_EQ(UltimoAviso(), "");
  absurda->perdida = true;
  Listar();
  EXPECT_EQ(UltimoAviso(), "frmEnvioFactura:Cargar|Conexión perdida|3");
  EXPECT_EQ(Columna(kFactura), Celdas{"1"}) << "the rows filled so far stay";
}

TEST_F(ListaTest, TheScreenIsReusedWhileOpenAndFreshAfterwards) {
  InsertarFactura(1);
  Listar();
  ui::Form* const abierta = toolkit.OpenForm("frmEnvioFactura");
  clase->Show(0, nullptr);
  EXPECT_EQ(toolkit.OpenForm("frmEnvioFactura"), abierta);
  EXPECT_EQ(Lista().Rows(), 2);
  Control<ui::Button>("cmdCancelar").Press();
  EXPECT_EQ(toolkit.OpenForm("frmEnvioFactura"), nullptr);
  clase->Show(0, nullptr);
  EXPECT_EQ(Lista().Rows(), 1);
  EXPECT_EQ(Control<ui::DateBox>("txtFechaI").Text(), "");
  clase.reset();
  EXPECT_EQ(toolkit.OpenForm("frmEnvioFactura"), nullptr);
}

}  // namespace
}  // namespace kvraedi
