#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

class Desadv : public ConDemo {};

TEST_F(Desadv, EveryFileOfTheDemoEndsWhereItBelongs) {
  const struct {
    const char* fichero;
    int codigo;
    const char* lugar;
    const char* dice;
  } casos[] = {
      {"desadv_bueno.dat", 0, "OK",
       "  2026/1: albarán A-2026-0101, proveedor 12, almacén 1, líneas 2\n"
       "  2026/2: albarán A-2026-0102, proveedor 12, almacén 2, líneas 1\n"},
      {"desadv_articulo_desconocido.dat", 0, "OK", "Albarán: A-2026-0103, artículo: 999999"},
      {"desadv_gln_desconocido.dat", 1, "Error", "Error: El GLN de Almacén no se encuentran"},
      {"desadv_cantidad_mala.dat", 1, "Error", "línea 6, registro QTYLIN, campo 2"},
      {"desadv_albaran_repetido.dat", 1, "Error", "línea 3, registro BGM, campo 1"},
      {"desadv_cabecera_mala.dat", 1, "Error", "Error: Error de inicio de fichero"},
      {"desadv_bueno.dat", 1, "", "No se puede leer"},
      {"../kvraedi.db", 1, "", "no es válido"},
  };
  for (const auto& caso : casos) {
    const Ejecucion ejecucion = Ejecutar({"desadv", "insertar", "--fichero", caso.fichero});
    EXPECT_EQ(ejecucion.codigo, caso.codigo) << ejecucion.mensajes << ejecucion.resultado;
    const auto lugar = Demo() / "Recepcion" / caso.lugar / caso.fichero;
    const std::string primera = std::string(caso.lugar).empty()
                                    ? "Fichero: no está en la carpeta de recepción\n"
                                    : "Fichero: " + lugar.string() + "\n";
    EXPECT_TRUE(ejecucion.resultado.starts_with(primera)) << ejecucion.resultado;
    EXPECT_NE(ejecucion.resultado.find(caso.dice), std::string::npos) << ejecucion.resultado;
    EXPECT_EQ(ejecucion.resultado.find("  ninguna\n") != std::string::npos, caso.codigo != 0);
    EXPECT_EQ(ejecucion.mensajes, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(Demo() / "Recepcion" / "Rx"));
}

}  // namespace
}  // namespace kvraedi::cli
