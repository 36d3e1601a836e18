#include <gtest/gtest.h>

#include <algorithm>

#include "dispatch/frmEnvioFactura.h"
#include "tests/apoyo/pantalla_envio.h"

namespace kvraedi {
namespace {

class EnvioTest : public PantallaEnvio {
 protected:
  void SetUp() override {
    PantallaEnvio::SetUp();
    for (const int codigo : {1, 2, 3}) InsertarFactura(codigo);
    Listar();
  }
  void Elegir(std::string_view cliente) { Control<ui::Picker>("txtCliente").Type(cliente); }
  void MarcarTodas() { Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle(); }
};

TEST_F(EnvioTest, ChecksComeInOrderBeforeAnythingIsSent) {
  Enviar();
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Se esperaba código de cliente.|1");
  Elegir("555");
  Enviar();
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Se esperaba código de cliente.|1");
  EXPECT_EQ(Control<ui::Picker>("txtCliente").Text(), "");

  Elegir("100");
  const struct {
    const char *desde, *hasta, *aviso;
  } casos[] = {
      {"", "", "¡ Atención !|Se esperaba Fecha Inicial.|2"},
      {"01/01/2024", "30/02/2024", "¡ Atención !|Se esperaba Fecha Final.|2"},
      {"02/01/2024", "01/01/2024", "¡ Atención !|Intervalo de fechas erróneo.|1"},
      {"01/01/2024", "01/02/2024", "¡ Atención !|Debe seleccionar al menos una factura|2"}};
  for (const auto& caso : casos) {
    Control<ui::DateBox>("txtFechaI").Type(caso.desde);
    Control<ui::DateBox>("txtFechaF").Type(caso.hasta);
    Enviar();
    EXPECT_EQ(UltimoAviso(), caso.aviso);
  }
  EXPECT_TRUE(Ficheros("").empty());
}

TEST_F(EnvioTest, TheCustomersChannelDecides) {
  const struct {
    const char *cambio, *aviso;
  } casos[] = {
      {"UPDATE Clientes SET Cod_EDITipoMsg_Fra = 9",
       "¡ Atención !|Debe definir el tipo de envío para el cliente seleccionado|2"},
      {"UPDATE Clientes SET Tipo = 1", "¡ Atención !|El cliente debe ser de tipo Empresa.|1"},
      {"UPDATE EDI_TipoMsg SET Cod_EDITipoMsg = 3; UPDATE Clientes SET Cod_EDITipoMsg_Fra = 3",
       "¡ Atención !|Debe definir el tipo de mensaje de envío para el cliente seleccionado|2"},
      {"UPDATE EDI_TipoMsg SET Cod_EDIPlat = 4; UPDATE Clientes SET Cod_EDIPlat_Fra = 4",
       "¡ Atención !|Debe definir el tipo de plataforma de envío para el cliente seleccionado|2"}};
  Elegir("100");
  MarcarTodas();
  for (const auto& [cambio, aviso] : casos) {
    base->BeginTrans();
    base->Run(cambio);
    Enviar();
    EXPECT_EQ(UltimoAviso(), aviso);
    base->RollbackTrans();
  }
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"1", "1", "1"}));
}

TEST_F(EnvioTest, SentRowsAreMarkedAndUnticked) {
  Elegir("100");
  Lista().Click(1, kSeleccion);
  Lista().Click(3, kSeleccion);
  Enviar();
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|El/los fichero/s INVOIC se han generado correctamente.|1");
  EXPECT_EQ(Columna(kGenerada), (Celdas{"X", "", "X"}));
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0", "0"}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 2);
  Enviar();
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Debe seleccionar al menos una factura|2");
}

TEST_F(EnvioTest, TheFirstFailureStopsTheLoop) {
  base->Execute("UPDATE Facturas SET Hora = NULL WHERE Codigo = 2");
  Elegir("100");
  MarcarTodas();
  Enviar();
  const auto& avisos = toolkit.Messages();
  ASSERT_GE(avisos.size(), 2U);
  EXPECT_EQ(avisos[avisos.size() - 2].title, "clsSeres:INVOIC");
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Error al generar la factura INVOIC: 2|1");
  EXPECT_EQ(Columna(kGenerada), (Celdas{"X", "", ""}));
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "1", "1"}));
}

/// By itself each of these rows would file another invoice, or an empty message.
TEST_F(EnvioTest, ARowThatWouldSendSomethingElseIsRefusedByName) {
  base->Run(R"(
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra) VALUES (1, 200, 'Otro', 2, 1);
UPDATE Facturas SET Cod_Ejercicio = 2023 WHERE Codigo = 2;
INSERT INTO TPV_Tickets (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Total) VALUES (1, 5, 2, '10/02/2024', 77, 12.3);
INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente, Factura_Serie, Factura_Codigo, Factura_Almacen, Factura_TipoDoc, Factura_Fecha, Hora)
  VALUES (1, 5, 2, '10/02/2024', 77, 100, 9, 9077, 5, 0, '11/02/2024', '11/02/2024');
)");
  InsertarFactura(4);
  const struct {
    const char *cliente, *factura, *motivo;
  } casos[] = {
      {"100", "2",
       "Factura 3/2 de 20/02/2024: su ejercicio, 2023, no es el año de su fecha, 2024."},
      {"200", "1", "Factura 3/1 de 20/02/2024: es del cliente 100 y no del cliente indicado, 200."},
      {"100", "9077",
       "Factura 9/9077 de 11/02/2024: es una factura de ticket, que no se puede enviar como "
       "INVOIC."}};
  for (const auto& [cliente, factura, motivo] : casos) {
    Elegir("100");
    Listar();
    Elegir(cliente);
    const Celdas facturas = Columna(kFactura);
    const auto fila = std::find(facturas.begin(), facturas.end(), factura) - facturas.begin() + 1;
    Lista().Click(static_cast<int>(fila), kSeleccion);
    Enviar();
    const auto& avisos = toolkit.Messages();
    EXPECT_EQ(TextoAviso(avisos[avisos.size() - 2]), "¡ Atención !|" + std::string(motivo) + "|2");
    EXPECT_EQ(UltimoAviso(),
              "¡ Atención !|Error al generar la factura INVOIC: " + std::string(factura) + "|1");
    EXPECT_TRUE(conexion->sentencias.back().starts_with("SELECT edi.")) << "the customer's channel";
    EXPECT_TRUE(Lista().IsSet(static_cast<int>(fila), kSeleccion));
  }
  EXPECT_TRUE(Ficheros("").empty());
}

TEST_F(EnvioTest, ACodeBeyondSixteenBitsIsNeverAnotherCustomer) {
  base->Execute(
      "INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Cod_EDIPlat_Fra,"
      " Cod_EDITipoMsg_Fra) VALUES (1, 65636, 'Grande', 2, 1)");
  Elegir("65636");
  MarcarTodas();
  Enviar();
  EXPECT_EQ(UltimoAviso(), "frmEnvioFactura:cmdAceptar_Click|Desbordamiento|3");
  EXPECT_TRUE(Ficheros("2024").empty());
  EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
}

TEST_F(EnvioTest, EveryScreenUsesTheCompanyThatWasSetLast) {
  base->Execute(
      "INSERT INTO Empresas (Codigo, Nombre_1, Emp_Articulos, Emp_Clientes,"
      " Emp_Proveedores) VALUES (2, 'Otra', 1, 1, 1)");
  clsFacturacionEmision otra;
  otra.EmpresaKestrova(std::make_shared<EmpresaDePrueba>(*base, std::int16_t{2}, carpeta.Ruta()));
  Listar();
  EXPECT_EQ(Lista().Rows(), 1) << "company 2 has no invoices";
}

}  // namespace
}  // namespace kvraedi
