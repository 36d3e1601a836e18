#include <fstream>

#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

class AnexosCli : public ConDemo {
 protected:
  AnexosCli() : ConDemo(120) {}
  void SetUp() override {
    fs::create_directory(perfil);
    std::ofstream(fichero, std::ios::binary) << "%PDF-1.4\n" << std::string(100000, '\xFF');
    const Ejecucion lista =
        Ejecutar({"facturas", "listar"}, {"--tipo", "directa", "--json", "--cadena", ""});
    const auto filas = LeerJson(lista.resultado);
    ASSERT_FALSE(filas.empty());
    const auto& fila = filas.front();
    cliente = fila.at("cliente");
    clave = fila.at("ejercicio") + "/" + fila.at("serie") + "/" + fila.at("factura") + "/" +
            fila.at("tipo_doc");
    Anexos("quitar", {"--nombre", "contrato_1.pdf"});
    Anexos("quitar", {"--nombre", "contrato_2.pdf"});
  }

  Ejecucion Ejecutar(Palabras args, const Palabras& mas) const {
    args.insert(args.end(),
                {"--perfil", perfil.string(), "--desde", "01/01/2000", "--hasta", "31/12/2099"});
    return ConDemo::Ejecutar(args, mas);
  }
  Ejecucion Anexos(const std::string& orden, const Palabras& mas,
                   const std::string& factura = {}) const {
    return Ejecutar(
        {"anexos", orden, "--cliente", cliente, "--factura", factura.empty() ? clave : factura},
        mas);
  }

  fs::path perfil = carpeta / "mi perfil";
  fs::path fichero = carpeta / "l'acord.pdf";
  std::string cliente;
  std::string clave;
};

TEST_F(AnexosCli, AddsListsAndRemoves) {
  const std::string vacia = "Anexos de " + clave + ": 0\n";
  const std::string uno = "Anexos de " + clave + ": 1\n  l'acord.pdf\tD'obra\n";
  const Ejecucion anadir =
      Anexos("anadir", {"--fichero", fichero.string(), "--descripcion", "D'obra"});
  EXPECT_EQ(anadir.resultado, uno);
  EXPECT_EQ(anadir.codigo, 0) << anadir.mensajes;
  EXPECT_EQ(Contenido(perfil / "Ormo" / "EDI" / "DocAnexos" / "l'acord.pdf"), Contenido(fichero));
  EXPECT_EQ(Anexos("listar", {}).resultado, uno);
  const Ejecucion quitar = Anexos("quitar", {"--nombre", "l'acord.pdf"});
  EXPECT_EQ(quitar.resultado, vacia);
  EXPECT_EQ(quitar.codigo, 0) << quitar.mensajes;
  EXPECT_EQ(Anexos("listar", {}).resultado, vacia);
}

TEST_F(AnexosCli, RefusalsEndWithOneAndWrongLinesWithTwo) {
  const struct {
    Ejecucion ejecucion;
    int codigo;
    const char* mensaje;
  } casos[] = {
      {Anexos("anadir", {"--fichero", fichero.string(), "--descripcion", ""}), 1,
       "[exclamación] ¡ Atención !: Debe rellenar la Descripción del documento"},
      {Anexos("anadir", {"--fichero", (carpeta / "nada.pdf").string(), "--descripcion", "x"}), 1,
       "[crítico] frmAnexosFactura:cmdAnexar_Click: No se puede leer"},
      {Anexos("quitar", {"--nombre", "nada"}), 1, "no tiene ningún anexo «nada»"},
      {Anexos("listar", {}, "1999/1/1"), 1, "1999/1/1 no está en la lista"},
      {Anexos("listar", {"--perfil", "x"}), 2, "--perfil: se ha dado más de una vez"},
      {Anexos("anadir", {"--fichero", "x"}), 2, "falta la opción --descripcion"},
      {Ejecutar({"anexos", "listar", "--cliente", cliente}, {}), 2, "falta la opción --factura"},
  };
  for (const auto& caso : casos) {
    EXPECT_EQ(caso.ejecucion.codigo, caso.codigo) << caso.mensaje;
    EXPECT_TRUE(caso.ejecucion.Dice(caso.mensaje)) << caso.ejecucion.mensajes;
    EXPECT_EQ(caso.ejecucion.resultado, "");
  }
}

}  // namespace
}  // namespace kvraedi::cli
