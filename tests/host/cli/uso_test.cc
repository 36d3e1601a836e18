#include <gtest/gtest.h>

#include "tests/host/cli/ejecucion.h"

namespace kvraedi::cli {
namespace {

using Palabras = std::vector<std::string>;

TEST(Uso, WrongLinesAreExplainedInSpanish) {
  const struct {
    Palabras args;
    const char* texto;
  } casos[] = {
      {{}, "falta la orden"},
      {{"facturas"}, "falta la orden"},
      {{"mandar"}, "no se entiende «mandar»"},
      {{"demo", "--nada"}, "no se entiende «--nada»"},
      {{"demo", "--json"}, "no se entiende «--json»"},
      {{"demo", "facturas"}, "no se entiende «facturas»"},
      {{"demo", "--facturas", "muchas"}, "--facturas: se esperaba un número entero"},
      {{"demo", "--facturas", "-1"}, "--facturas"},
      {{"demo", "--facturas", "2000001"}, "de 0 a 2000000"},
      {{"demo", "--carpeta"}, "--carpeta: falta su valor"},
      {{"demo", "--carpeta", "--facturas", "3"}, "--carpeta: falta su valor"},
      {{"demo", "--semilla", "1", "--semilla", "2"}, "--semilla: se ha dado más de una vez"},
      {{"--empresa", "40000", "demo"}, "--empresa: se esperaba un número entero de 1 a 32767"},
      {{"--region", "fr", "demo"}, "--region: se esperaba es o en, no «fr»"},
      {{"--ahora", "2024-02-30T10:00:00", "demo"}, "--ahora: se esperaba AAAA-MM-DDTHH:MM:SS"},
      {{"--ahora", "29/02/2024", "demo"}, "--ahora"},
      {{"--conexion", "Driver=x;PWD=oculta", "demo"}, "sqlite:RUTA, odbc:CADENA u odbc:@FICHERO\n"},
      {{"facturas", "listar", "--hasta", "1"}, "falta la opción --desde"},
      {{"facturas", "listar", "--desde", "1"}, "falta la opción --hasta"},
      {{"facturas", "listar", "--desde", "1", "--hasta", "2", "--estado", "x"},
       "se esperaba todos, generadas o pendientes, no «x»"},
      {{"facturas", "listar", "--desde", "1", "--hasta", "2", "--tipo", "fd"}, "directa"},
      {{"facturas", "enviar", "--desde", "1", "--hasta", "2", "--todas"}, "--cliente"},
      {{"facturas", "enviar", "--cliente", "0", "--desde", "1", "--hasta", "2", "--todas"},
       "--cliente: se esperaba un número entero de 1 a 2147483647"},
      {{"facturas", "enviar", "--cliente", "1", "--desde", "1", "--hasta", "2"}, "--todas"},
      {{"facturas", "enviar", "--cliente", "1", "--desde", "1", "--hasta", "2", "--todas",
        "--factura", "2024/1/1"},
       "sólo una de las dos"},
      {{"facturas", "enviar", "--cliente", "1", "--desde", "1", "--hasta", "2", "--factura",
        "2024/1/1", "cuatro"},
       "--factura: se esperaba EJERCICIO/SERIE/NUMERO"},
      {{"pantallas", "--capturas", "x"}, ""},
  };
  for (const auto& caso : casos) {
    const Ejecucion ejecucion(caso.args);
    const bool sinQt = ejecucion.Dice("sin Qt");
    EXPECT_EQ(ejecucion.codigo, sinQt ? 1 : 2) << caso.texto;
    EXPECT_TRUE(ejecucion.Dice(caso.texto)) << caso.texto << " / " << ejecucion.mensajes;
    EXPECT_EQ(ejecucion.resultado, "");
  }
}

TEST(Uso, HelpIsSpanishAndTellsTheExitCodes) {
  const Ejecucion ayuda(Palabras{"--ayuda"});
  EXPECT_EQ(ayuda.codigo, 0);
  EXPECT_NE(ayuda.resultado.find("Códigos de salida"), std::string::npos);
  const std::vector<Palabras> ordenes = {{"-h"},
                                         {"demo", "--help"},
                                         {"facturas", "--ayuda"},
                                         {"facturas", "listar", "--ayuda"},
                                         {"facturas", "enviar", "--desde", "x", "-h"},
                                         {"pantallas", "-h"}};
  for (const Palabras& orden : ordenes) {
    const Ejecucion ejecucion(orden);
    EXPECT_EQ(ejecucion.codigo, 0);
    EXPECT_EQ(ejecucion.mensajes, "");
    EXPECT_NE(ejecucion.resultado.find("Uso: kvraedi"), std::string::npos);
    for (const char* ingles : {"Options", "Usage", "Subcommands", "REQUIRED"}) {
      EXPECT_EQ(ejecucion.resultado.find(ingles), std::string::npos) << ejecucion.resultado;
    }
  }
}

TEST(Uso, AnOutputThatFailsIsReported) {
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(RunCli({"--version"}, out, err), 3);
  EXPECT_NE(err.str().find("no se puede escribir la salida"), std::string::npos);
}

}  // namespace
}  // namespace kvraedi::cli
