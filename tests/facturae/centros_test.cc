#include <gtest/gtest.h>

#include <optional>

#include "facturae/frmCentrosAdm.h"
#include "kvraedi/frmclsCentrosAdministrativos.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {
namespace {

using Textos = std::vector<std::string>;

constexpr const char* kLista =
    "SELECT ca.*, p.Nombre AS Pais FROM EDI_Centros_Administrativos ca  LEFT JOIN PAISES p ON "
    "p.Cod_Pais = ca.Cod_Pais  ORDER BY ca.Nombre";
constexpr const char* kPaises = "SELECT Cod_Pais Codigo, Nombre FROM Paises ORDER BY Nombre";

/// The open list of centres, used as a person uses it.
class CentrosTest : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(R"(
INSERT INTO Paises (Cod_Pais, Nombre) VALUES (2, 'Francia');
INSERT INTO Codigos_Postales VALUES (8001, 'Barcelona', 'Barcelona (prov.)', 34);
INSERT INTO Codigos_Postales VALUES (75001, 'París', 'Isla de Francia', 77);
)");
  }
  void TearDown() override {
    clase.reset();
    Escenario::TearDown();
  }

  void Insertar(const std::string& codigo, const std::string& nombre, const char* pais = "34") {
    base->Execute("INSERT INTO EDI_Centros_Administrativos VALUES ('" + codigo + "', '" + nombre +
                  "', 'C/ Mayor, 1', '35001', 'Telde', 'Las Palmas', " + pais + ", NULL)");
  }
  void Abrir() {
    clase.emplace();
    clase->Show(0, nullptr);
    conexion->sentencias.clear();
  }
  ui::Form& Pantalla() { return *toolkit.OpenForm("frmCentrosAdm"); }
  ui::Grid& Lista() { return dynamic_cast<ui::Grid&>(*Pantalla().Find("vsCentros")); }
  ui::Button& Boton(const char* nombre) {
    return dynamic_cast<ui::Button&>(*Pantalla().Find(nombre));
  }
  std::string Fila(int fila) {
    std::string celdas(Lista().Cell(fila, 0));
    for (int columna = 1; columna < kColumnasCentro; ++columna) {
      celdas.append("|").append(Lista().Cell(fila, columna));
    }
    return celdas;
  }
  static ui::TextBox& Campo(ui::Form& dialogo, const std::string& nombre) {
    return dynamic_cast<ui::TextBox&>(*dialogo.Find("txt" + nombre));
  }
  /// The texts of the dialog as the list has them, without the country's code.
  static std::string Escrito(ui::Form& dialogo) {
    std::string textos;
    for (const char* nombre :
         {"Codigo", "Nombre", "Direccion", "CodigoPostal", "Localidad", "Provincia"}) {
      textos.append(Campo(dialogo, nombre).Text()).append("|");
    }
    return textos.append(Paises(dialogo).Text());
  }
  static ui::ComboBox& Paises(ui::Form& dialogo) {
    return dynamic_cast<ui::ComboBox&>(*dialogo.Find("cboCod_Pais"));
  }
  static void Aceptar(ui::Form& dialogo) {
    dynamic_cast<ui::Button&>(*dialogo.Find("cmdAceptar")).Press();
  }
  static void Escribir(ui::Form& dialogo, const char* codigo, const char* nombre) {
    for (const auto& [campo, texto] : {std::pair{"Codigo", codigo},
                                       {"Nombre", nombre},
                                       {"Direccion", "C/ L'Hospital, 2"},
                                       {"CodigoPostal", "08001"},
                                       {"Localidad", "l'Escala"},
                                       {"Provincia", "Girona"}}) {
      Campo(dialogo, campo).Type(texto);
    }
    Paises(dialogo).Choose(1);
  }
  /// The next edit dialog is filled in and accepted.
  void AlEditar(const char* codigo, const char* nombre) {
    toolkit.OnShow("frmCentrosAdm_Datos", [=](ui::Form& dialogo) {
      Escribir(dialogo, codigo, nombre);
      Aceptar(dialogo);
    });
  }
  void Agregar(const char* codigo, const char* nombre) {
    AlEditar(codigo, nombre);
    Boton("cmdAgregar").Press();
  }
  int Centros() const { return Contar("SELECT COUNT(*) FROM EDI_Centros_Administrativos"); }

  std::optional<frmclsCentrosAdministrativos> clase;
};

TEST_F(CentrosTest, TheListShowsEveryCentreByNameAndIsOneUntilItIsClosed) {
  Insertar("Z1", "Alcaldía");
  Insertar("A1", "Tesorería", "NULL");
  Insertar("B1", "Intervención", "99");
  clase.emplace();
  clase->Show(0, nullptr);
  EXPECT_EQ(conexion->sentencias, (Textos{kLista}));
  EXPECT_EQ(Fila(0), "Código|Nombre|Dirección|CP|Localidad|Provincia||País|Descripcion");
  EXPECT_EQ(Fila(1), "Z1|Alcaldía|C/ Mayor, 1|35001|Telde|Las Palmas|34|España|");
  EXPECT_EQ(Fila(2), "B1|Intervención|C/ Mayor, 1|35001|Telde|Las Palmas|99||");
  EXPECT_EQ(Fila(3), "A1|Tesorería|C/ Mayor, 1|35001|Telde|Las Palmas|||");
  EXPECT_TRUE(Lista().Columns()[kCentroCodPais].hidden);
  EXPECT_EQ(Lista().Columns()[kCentroCodigoPostal].width, 600);
  EXPECT_EQ(Lista().Columns()[kCentroCodigoPostal].alignment, ui::Alignment::kRight);

  Insertar("C1", "Zona");
  clase->Show(0, nullptr);
  EXPECT_EQ(Lista().Rows(), 4);
  Boton("cmdSalir").Press();
  EXPECT_EQ(toolkit.OpenForm("frmCentrosAdm"), nullptr);
  conexion->fallo.FallarEn(1);
  clase->Show(0, nullptr);
  EXPECT_EQ(UltimoAviso(), "frmCentrosAdm:Load|Conexión perdida|3");
  EXPECT_EQ(Lista().Rows(), 1);
  EXPECT_FALSE(Boton("cmdModificar").Enabled());
  clase.reset();
  EXPECT_EQ(toolkit.OpenForm("frmCentrosAdm"), nullptr);
}

TEST_F(CentrosTest, MissingFieldsAreAskedForInOrder) {
  const struct {
    const char *campo, *valor, *falta;
  } pasos[] = {
      {"Codigo", "C1", "un Código"},           {"Nombre", "Uno", "un Nombre"},
      {"Direccion", "C/ 1", "una Dirección"},  {"CodigoPostal", "35001", "un Código Postal"},
      {"Localidad", "Telde", "una Localidad"}, {"Provincia", "Las Palmas", "una Provincia"}};
  const auto aviso = [](const std::string& falta) {
    return "¡ Atención !|Debe especificar " + falta + " para el Centro Administrativo|2";
  };
  Abrir();
  toolkit.OnShow("frmCentrosAdm_Datos", [&](ui::Form& dialogo) {
    for (const auto& [campo, valor, falta] : pasos) {
      Campo(dialogo, campo).Type("   ");
      Aceptar(dialogo);
      EXPECT_EQ(UltimoAviso(), aviso(falta));
      EXPECT_EQ(dialogo.ActiveControl(), &Campo(dialogo, campo));
      Campo(dialogo, campo).Type(valor);
    }
    Aceptar(dialogo);
    EXPECT_EQ(UltimoAviso(), aviso("un Pais"));
    Paises(dialogo).Choose(0);
    Aceptar(dialogo);
    EXPECT_FALSE(dialogo.Loaded());
  });
  Boton("cmdAgregar").Press();
  EXPECT_EQ(toolkit.Messages().size(), 7U);
  EXPECT_EQ(Centros(), 1);
}

TEST_F(CentrosTest, AddingStoresReloadsAndSelectsTheLastRow) {
  Abrir();
  EXPECT_FALSE(Boton("cmdModificar").Enabled() || Boton("cmdEliminar").Enabled());
  Agregar("C'1", "O'Higgins");
  EXPECT_EQ(conexion->sentencias,
            (Textos{kPaises,
                    " SELECT TOP 1 * FROM EDI_Centros_Administrativos WHERE Codigo = 'C''1' OR "
                    "Nombre = 'O''Higgins'",
                    "INSERT INTO EDI_Centros_Administrativos (Codigo, Nombre, Direccion, "
                    "CodigoPostal, Localidad, Provincia, Cod_Pais, Descripcion)  VALUES "
                    "('C''1','O''Higgins','C/ L''Hospital, 2','08001','l''Escala','Girona',2,'')",
                    kLista}));
  EXPECT_EQ(Fila(1), "C'1|O'Higgins|C/ L'Hospital, 2|08001|l'Escala|Girona|2|Francia|");
  EXPECT_TRUE(Boton("cmdModificar").Enabled() && Boton("cmdEliminar").Enabled());
  Agregar("C2", "Alcaldía");
  EXPECT_EQ(Lista().Row(), 2);
  EXPECT_EQ(Lista().Cell(2, kCentroCodigo), "C'1");
  EXPECT_TRUE(toolkit.Messages().empty());
  for (const auto& [codigo, nombre] : {std::pair{"C3", "alcaldía"}, {"C2", "Otro"}}) {
    Agregar(codigo, nombre);
    EXPECT_EQ(UltimoAviso(), "¡ Operación no permitida !|El elemento especificado ya existe.|2");
  }
  EXPECT_EQ(toolkit.Messages().size(), 2U);
  EXPECT_EQ(Centros(), 2);
}

TEST_F(CentrosTest, ModifyingFindsTheRecordByItsOldCode) {
  Insertar("C''1", "Zona");
  Insertar("C2", "Alcaldía");
  base->Execute("UPDATE Clientes SET EDI_Rol_Fiscal = 'C''1'");
  Abrir();
  Lista().Click(2, kCentroNombre);
  toolkit.OnShow("frmCentrosAdm_Datos", [&](ui::Form& dialogo) {
    EXPECT_EQ(Escrito(dialogo), "C'1|Zona|C/ Mayor, 1|35001|Telde|Las Palmas|España");
    Escribir(dialogo, "C3", "Alcaldía");
    Campo(dialogo, "Descripcion").Type("Órgano gestor");
    Aceptar(dialogo);
  });
  Boton("cmdModificar").Press();
  EXPECT_EQ(conexion->sentencias,
            (Textos{kPaises,
                    "UPDATE EDI_Centros_Administrativos  SET Codigo='C3', Nombre ='Alcaldía', "
                    "Direccion = 'C/ L''Hospital, 2', CodigoPostal = '08001', Localidad = "
                    "'l''Escala', Provincia = 'Girona', Cod_Pais = 2, Descripcion = 'Órgano "
                    "gestor' WHERE Codigo='C''1'"}));
  EXPECT_EQ(Fila(2), "C3|Alcaldía|C/ L'Hospital, 2|08001|l'Escala|Girona|2|Francia|Órgano gestor");
  EXPECT_TRUE(toolkit.Messages().empty());
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Centros_Administrativos WHERE Codigo = 'C3'"), 1);
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Clientes WHERE EDI_Rol_Fiscal = 'C''1'"), 1);

  AlEditar("C2", "Repetido");
  Boton("cmdModificar").Press();
  EXPECT_EQ(toolkit.Messages().back().title, "frmCentrosAdm:cmdModificar_Click");
  EXPECT_EQ(Lista().Cell(2, kCentroCodigo), "C3");
}

TEST_F(CentrosTest, NothingSelectedCancelledOrNotConfirmedChangesNothing) {
  Insertar("C''1", "Alcaldía");
  Insertar("C2", "Zona");
  Abrir();
  Boton("cmdModificar").Press();
  Boton("cmdEliminar").Press();
  Lista().Click(0, kCentroNombre);
  Boton("cmdModificar").Press();
  EXPECT_TRUE(conexion->sentencias.empty());

  Lista().Click(1, kCentroNombre);
  for (const bool boton : {true, false}) {
    for (const char* accion : {"cmdAgregar", "cmdModificar"}) {
      toolkit.OnShow("frmCentrosAdm_Datos", [=](ui::Form& dialogo) {
        Escribir(dialogo, "C9", "Nueve");
        if (boton) dynamic_cast<ui::Button&>(*dialogo.Find("cmdCancelar")).Press();
      });
      Boton(accion).Press();
    }
  }
  EXPECT_EQ(conexion->sentencias, Textos(4, kPaises));
  EXPECT_TRUE(toolkit.Messages().empty());

  Boton("cmdEliminar").Press();
  EXPECT_EQ(Centros(), 2);
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|¿Está seguro que desea eliminar el elemento actual?|4");
  EXPECT_EQ(toolkit.Messages().back().buttons, ui::Buttons::kYesNo);
  EXPECT_EQ(toolkit.Messages().back().preset, ui::Answer::kNo);
  conexion->sentencias.clear();
  for (const int quedan : {1, 0}) {
    toolkit.QueueAnswer(ui::Answer::kYes);
    Boton("cmdEliminar").Press();
    EXPECT_EQ(Centros(), quedan);
    EXPECT_EQ(Lista().Rows(), quedan + 1);
    EXPECT_EQ(Boton("cmdModificar").Enabled() && Boton("cmdEliminar").Enabled(), quedan > 0);
  }
  EXPECT_EQ(conexion->sentencias.front(),
            "DELETE FROM EDI_Centros_Administrativos WHERE Codigo='C''1'");
}

TEST_F(CentrosTest, EnterInThePostalCodeLooksItUp) {
  const struct {
    const char *escrito, *queda, *localidad, *pais;
  } casos[] = {{"8001", "08001", "Barcelona", "España"},
               {" 08001 ", "08001", "Barcelona", "España"},
               {"75001", "75001", "París", "Francia"},
               {"123", "00123", "Lugo", "Francia"},
               {"123456", "123456", "Lugo", "Francia"},
               {"0", "0", "Lugo", "Francia"},
               {"", "", "Lugo", "Francia"},
               {"SW1A 1AA", "SW1A 1AA", "Lugo", "Francia"},
               {"1000-205", "1000-205", "Lugo", "Francia"}};
  Abrir();
  for (const auto& caso : casos) {
    toolkit.OnShow("frmCentrosAdm_Datos", [&](ui::Form& dialogo) {
      Campo(dialogo, "Localidad").Type("Lugo");
      Paises(dialogo).Choose(1);
      Campo(dialogo, "CodigoPostal").Type(caso.escrito);
      Campo(dialogo, "CodigoPostal").PressEnter();
      EXPECT_EQ(Campo(dialogo, "CodigoPostal").Text(), caso.queda);
      EXPECT_EQ(Campo(dialogo, "Localidad").Text(), caso.localidad) << caso.escrito;
      EXPECT_EQ(Paises(dialogo).Text(), caso.pais) << caso.escrito;
      EXPECT_EQ(dialogo.ActiveControl(), dialogo.Find("txtLocalidad"));
      Paises(dialogo).PressEnter();
      EXPECT_EQ(dialogo.ActiveControl(), dialogo.Find("txtDescripcion"));
    });
    Boton("cmdAgregar").Press();
  }
}

/// Every statement of an action fails in turn: a box says where, and nothing is half done.
TEST_F(CentrosTest, AFailedStatementIsToldAndLeavesTheRestAsItWas) {
  Insertar("C1", "Alcaldía");
  Abrir();
  const std::string carga = "frmCentrosAdm_Datos:Load";
  const std::string postal = "frmCentrosAdm_Datos:txtCodigoPostal_KeyPress";
  const struct {
    std::string accion;
    Textos titulos;  // one for each statement; the action's own is ""
    int guardados;   // centres there when the last one failed
  } casos[] = {{"cmdAgregar", {carga, postal, "", "", ""}, 2},
               {"cmdModificar", {carga, postal, ""}, 1},
               {"cmdEliminar", {""}, 1}};
  for (const auto& [accion, titulos, guardados] : casos) {
    Lista().Click(1, kCentroNombre);
    const std::string antes = Fila(1);
    for (std::size_t k = 1; k <= titulos.size(); ++k) {
      const std::string propio = "frmCentrosAdm:" + accion + "_Click";
      const std::string titulo = titulos[k - 1].empty() ? propio : titulos[k - 1];
      if (titulo != carga) {  // a dialog that cannot be loaded is not shown
        toolkit.OnShow("frmCentrosAdm_Datos", [&](ui::Form& dialogo) {
          Escribir(dialogo, "C2", "Zona");
          Campo(dialogo, "CodigoPostal").PressEnter();
          if (!conexion->fallo.Disparado()) Aceptar(dialogo);
        });
      }
      if (accion == "cmdEliminar") toolkit.QueueAnswer(ui::Answer::kYes);
      conexion->fallo.FallarEn(static_cast<int>(k));
      Boton(accion.c_str()).Press();
      EXPECT_EQ(UltimoAviso(), titulo + "|Conexión perdida|3") << accion << k;
      EXPECT_EQ(conexion->fallo.Operaciones(), static_cast<int>(k));
      EXPECT_EQ(Centros(), k == titulos.size() ? guardados : 1) << accion << k;
      EXPECT_EQ(Lista().Rows(), 2);
      EXPECT_EQ(Fila(1), antes);
      conexion->fallo.FallarEn(0);
      base->Execute("DELETE FROM EDI_Centros_Administrativos WHERE Codigo <> 'C1'");
    }
  }
}

}  // namespace
}  // namespace kvraedi
