#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

class Centros : public ConDemo {
 protected:
  Ejecucion Ejecutar(const char* orden, const Palabras& args = {}) const {
    return ConDemo::Ejecutar({"centros", orden}, args);
  }
  /// The centre of that code as the list tells it; empty when it has none.
  Objeto Centro(const std::string& codigo) const {
    const Ejecucion lista = Ejecutar("listar", {"--json"});
    EXPECT_EQ(lista.codigo, 0) << lista.mensajes;
    for (Objeto& fila : LeerJson(lista.resultado)) {
      if (fila.at("codigo") == codigo) return fila;
    }
    return {};
  }
};

TEST_F(Centros, AddedModifiedAndDeleted) {
  const Palabras nuevo = {"--codigo", "X'1",  "--nombre", "Cabildo",       "--direccion",
                          "C/ 1",     "--cp", "38700",    "--descripcion", "Órgano \"gestor\""};
  const Ejecucion anadir = Ejecutar("anadir", nuevo);
  EXPECT_EQ(anadir.codigo, 0) << anadir.mensajes;
  EXPECT_EQ(anadir.resultado, "Centro añadido: X'1\n");
  EXPECT_EQ(Centro("X'1"), (Objeto{{"codigo", "X'1"},
                                   {"nombre", "Cabildo"},
                                   {"direccion", "C/ 1"},
                                   {"codigo_postal", "38700"},
                                   {"localidad", "Santa Cruz de la Palma"},
                                   {"provincia", "S/C de Tenerife"},
                                   {"cod_pais", "1"},
                                   {"pais", "España"},
                                   {"descripcion", "Órgano \"gestor\""}}));
  EXPECT_NE(Ejecutar("listar").resultado.find("X'1        Cabildo "), std::string::npos);

  const Ejecucion repetido = Ejecutar("anadir", nuevo);
  EXPECT_EQ(repetido.codigo, 1);
  EXPECT_TRUE(repetido.Dice("¡ Operación no permitida !: El elemento especificado ya existe."));

  EXPECT_EQ(
      Ejecutar("modificar", {"--codigo", "X'1", "--codigo-nuevo", "X2", "--cp", "35001",
                             "--localidad", "Vegueta", "--pais", "Portugal", "--descripcion", ""})
          .resultado,
      "Centro modificado: X2\n");
  const Objeto modificado = Centro("X2");
  EXPECT_EQ(modificado.at("nombre"), "Cabildo");
  EXPECT_EQ(modificado.at("localidad"), "Vegueta");
  EXPECT_EQ(modificado.at("provincia"), "Las Palmas");
  EXPECT_EQ(modificado.at("pais"), "Portugal");
  EXPECT_EQ(modificado.at("descripcion"), "");

  EXPECT_EQ(Ejecutar("eliminar", {"--codigo", "X2"}).resultado, "Centro eliminado: X2\n");
  EXPECT_TRUE(Centro("X2").empty());
}

TEST_F(Centros, RefusalsChangeNothingAndSayWhy) {
  const std::string antes = Ejecutar("listar", {"--json"}).resultado;
  const struct {
    const char* orden;
    Palabras args;
    const char* texto;
    int codigo;
  } casos[] = {
      {"anadir", {"--codigo", "X1"}, "[exclamación] ¡ Atención !: Debe especificar un Nombre", 1},
      {"anadir", {"--codigo", "X1", "--pais", "Atlántida"}, "no hay ningún país «Atlántida»", 1},
      {"anadir", {"--nombre", "Sin código"}, "falta la opción --codigo", 2},
      {"modificar", {"--codigo", "X1"}, "no hay ningún centro «X1»", 1},
      {"modificar",
       {"--codigo", "L01359001", "--codigo-nuevo", "L01359002"},
       "[crítico] frmCentrosAdm:cmdModificar_Click",
       1},
      {"eliminar", {"--codigo", "X1"}, "no hay ningún centro «X1»", 1},
  };
  for (const auto& caso : casos) {
    const Ejecucion ejecucion = Ejecutar(caso.orden, caso.args);
    EXPECT_EQ(ejecucion.codigo, caso.codigo) << caso.texto;
    EXPECT_TRUE(ejecucion.Dice(caso.texto)) << ejecucion.mensajes;
    EXPECT_EQ(ejecucion.resultado, "");
  }
  EXPECT_EQ(Ejecutar("listar", {"--json"}).resultado, antes);
}

}  // namespace
}  // namespace kvraedi::cli
