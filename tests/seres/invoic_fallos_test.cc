#include <gtest/gtest.h>

#include <fstream>

#include "seres/modSeres.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {
namespace {

class InvoicFallosTest : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    InsertarFactura(1);
  }
  bool Enviar() { return INVOIC(100, 3, 1, 0, 2024); }

  /// Nothing of a failed sending may be left, and its error must have been shown.
  void ComprobarFallido(std::string_view mensaje) {
    EXPECT_EQ(toolkit.Messages().back().title, "clsSeres:INVOIC");
    EXPECT_EQ(toolkit.Messages().back().icon, ui::Icon::kCritical);
    EXPECT_NE(toolkit.Messages().back().text.find(mensaje), std::string::npos)
        << toolkit.Messages().back().text;
    EXPECT_TRUE(Ficheros("Temp").empty());
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 0);
  }
};

TEST_F(InvoicFallosTest, AMissingSendingRootIsToldBeforeAnythingIsDone) {
  std::filesystem::remove(envios);
  EXPECT_FALSE(Enviar());
  ComprobarFallido("No existe la ruta para generación de ficheros EDI");
  EXPECT_FALSE(std::filesystem::exists(envios));
}

TEST_F(InvoicFallosTest, WhateverFailsTheSendingIsUndoneAndCanBeRepeated) {
  for (int linea = 2; linea <= 150; ++linea) {  // more than one block of the file
    base->Execute(
        "INSERT INTO Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc,"
        " Num_Linea, Cod_Articulo, Descripcion, Unidades, Precio, PrecioG, Impuesto)"
        " VALUES (1, 2024, 3, 1, 0, " +
        std::to_string(linea) + ", 501, 'Queso', 4, 25, 30, 1)");
  }
  ASSERT_TRUE(Enviar());
  const int operaciones = entorno.fallo.Operaciones();
  const int sentencias = conexion->fallo.Operaciones();
  ASSERT_GE(operaciones, 8);
  ASSERT_EQ(sentencias, 4) << "invoice, lines, taxes, record";
  const auto deshacer = [&] {
    base->Execute("DELETE FROM EDI_Envio_Facturas");
    std::filesystem::remove_all(envios / "2024");
  };
  for (int k = 1; k <= sentencias; ++k) {
    deshacer();
    conexion->fallo.FallarEn(k);
    EXPECT_FALSE(Enviar()) << k;
    ComprobarFallido("Conexión perdida");
    EXPECT_TRUE(Ficheros("2024").empty()) << k;
    EXPECT_TRUE(Enviar()) << k;
  }
  // The rename comes after the record: it alone leaves one, and the file beside its place.
  for (int k = 1; k < operaciones; ++k) {
    deshacer();
    entorno.fallo.FallarEn(k);
    EXPECT_FALSE(Enviar()) << k;
    ComprobarFallido("No ");
    EXPECT_TRUE(Ficheros("2024").empty()) << k;
  }
  deshacer();
  entorno.fallo.FallarEn(operaciones);
  EXPECT_FALSE(Enviar());
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 1);
  const auto ficheros = Ficheros("2024");
  ASSERT_EQ(ficheros.size(), 1U);
  EXPECT_TRUE(ficheros[0].ends_with(".txt.parcial"));
  EXPECT_TRUE(toolkit.Messages().back().text.ends_with(ficheros[0]));
  InsertarFactura(2);
  ASSERT_TRUE(INVOIC(100, 3, 2, 0, 2024));
  EXPECT_EQ(Ficheros("2024")[0] + ".parcial", ficheros[0]) << "the next sending names it";
  EXPECT_TRUE(Ficheros("Temp").empty());
}

TEST_F(InvoicFallosTest, AValueThatCannotBeWrittenStopsTheSending) {
  const struct {
    const char* cambio;
    const char* mensaje;
  } casos[] = {
      {"UPDATE Facturas SET Total = NULL", "columna Total: Uso no válido de Null"},
      {"UPDATE Facturas SET Hora = NULL", "columna Hora: Uso no válido de Null"},
      {"UPDATE Facturas_Lineas SET Unidades = NULL",
       "línea 1: columna Unidades: Uso no válido de Null"},
      {"UPDATE Facturas_Lineas SET PDescuento = NULL", "columna PDescuento: Uso no válido de Null"},
      {"UPDATE Facturas_Lineas SET Num_Linea = 1000000", "no cabe en el campo Linea"},
      {"UPDATE Facturas_Lineas SET Impuesto = 77", "77"},
      {"UPDATE Facturas SET Dto1 = 123456, TDto1 = 0", "no cabe en el campo Porcentaje"},
  };
  for (const auto& [cambio, mensaje] : casos) {
    base->BeginTrans();
    base->Execute(cambio);
    EXPECT_FALSE(Enviar()) << cambio;
    ComprobarFallido(mensaje);
    EXPECT_TRUE(Ficheros("2024").empty()) << cambio;
    base->RollbackTrans();
  }
}

TEST_F(InvoicFallosTest, NullTextsAreBlank) {
  base->Execute("UPDATE Clientes SET EDI_GLN = NULL, Nif = NULL, Direccion = NULL, Cod_Pais = 999");
  base->Execute("UPDATE Empresas SET Fax = NULL");
  base->Execute("DELETE FROM Empresas_Parametros WHERE Nombre = 'EDI_RegistroMercantil'");
  EXPECT_TRUE(Enviar());
}

TEST_F(InvoicFallosTest, AFileWhereTheYearFolderShouldBeIsToldByName) {
  std::ofstream(envios / "2024") << "x";
  EXPECT_FALSE(Enviar());
  ComprobarFallido("2024");
}

}  // namespace
}  // namespace kvraedi
