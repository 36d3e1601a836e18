#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "kvraedi/adaptadores.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/suite/suite_referencia.h"
#include "tests/platform/suite/base_suite.h"

namespace kvraedi {
namespace {

using ui::Button;
using ui::Grid;
using ui::TextBox;
using Textos = std::vector<std::string>;

class SelectoresTest : public BaseSuite {
 protected:
  SelectoresTest() {
    Cliente("1, 5, 'O''Donnell e Hijos'");
    Cliente("1, 12, '\"Ñandú & Cía; S.L.\"'");
    Cliente("1, 40123, 'Descuento 100% [oferta]_final!'");
    Cliente("2, 8, 'De otro fichero'");
    for (const char* cadena : {"1, 1, 3, 'Norte'", "1, 2, 5, 'Zona 2'", "1, 3, 7, 'Súper O''Hara'",
                               "1, 10, 9, 'Último'", "2, 1, 4, 'De otro fichero'"}) {
      db->Execute(std::string("INSERT INTO Cadenas (Cod_Empresa, Nivel, Codigo, Nombre) VALUES (") +
                  cadena + ")");
    }
    conexion = std::make_shared<ConexionConFallos>(db);
    auto empresa = std::make_shared<EmpresaSuite>(*db, std::int16_t{7}, "/demo");
    clientes = suite.Clientes(conexion, empresa);
    cadenas = suite.Cadenas(conexion, empresa);
    InstalarAdaptadores({.toolkit = &toolkit});
  }
  ~SelectoresTest() override { InstalarAdaptadores({}); }

  void Cliente(const std::string& values) {
    db->Execute("INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre) VALUES (" + values + ")");
  }
  /// Opens the search and lets a user act in it.
  std::optional<std::string> Buscar(ui::PickerSource& fuente, std::string_view typed,
                                    std::function<void(ui::Form&)> user) {
    toolkit.OnShow("frmBuscar", std::move(user));
    return fuente.Search(typed, *owner);
  }
  template <class T>
  static T& Control(ui::Form& form, std::string_view name) {
    return dynamic_cast<T&>(*form.Find(name));
  }
  static Textos Columna(ui::Form& form, int col) {
    const auto& grid = Control<Grid>(form, "vsFilas");
    Textos cells;
    for (int row = 1; row < grid.Rows(); ++row) cells.emplace_back(grid.Cell(row, col));
    return cells;
  }

  HeadlessToolkit toolkit;
  SuiteReferencia suite;
  std::shared_ptr<ConexionConFallos> conexion;
  std::unique_ptr<ui::PickerSource> clientes;
  std::unique_ptr<ui::PickerSource> cadenas;
  std::shared_ptr<ui::Form> owner = std::make_shared<ui::Form>("frmPrueba", "Prueba");
};

/// What a text is resolved to: text, description and codes, parted by "|".
std::string Resuelto(ui::PickerSource& fuente, const char* typed) {
  const ui::PickerValue value = fuente.Resolve(typed);
  std::ostringstream resuelto;
  resuelto << (value.valid ? "" : "no: ") << value.text << '|' << value.description << '|';
  for (const auto code : value.codes) resuelto << code << ' ';
  return resuelto.str();
}

TEST_F(SelectoresTest, CustomerCodesAndChainLevels) {
  using Casos = std::vector<std::pair<const char*, const char*>>;
  const Casos deClientes = {
      {"5", "5|O'Donnell e Hijos|5 "},
      {" 0012 ", "12|\"Ñandú & Cía; S.L.\"|12 "},
      {"40123", "40123|Descuento 100% [oferta]_final!|40123 "},
      {"6", "no: 6||6 "},
      {"8", "no: 8||8 "},
      {"-5", "no: -5||-5 "},
      {"", "no: ||"},
      {"  ", "no: ||"},
      {"5x", "no: 5x||"},
      {"5 OR 1=1", "no: 5 OR 1=1||"},
      {"99999999999", "no: 99999999999||"},
  };
  const Casos deCadenas = {
      {"3", "3|Norte|3 "},
      {"3/5/7", "3/5/7|Norte / Zona 2 / Súper O'Hara|3 5 7 "},
      {"0/0/7", "0/0/7|Súper O'Hara|0 0 7 "},
      {" 3 / / 7 /", "3/0/7|Norte / Súper O'Hara|3 0 7 "},
      {"/////////9", "0/0/0/0/0/0/0/0/0/9|Último|0 0 0 0 0 0 0 0 0 9 "},
      {"3/6", "no: 3/6|Norte|3 6 "},
      {"4", "no: 4||4 "},
      {"", "no: ||"},
      {"0/0", "no: ||"},
      {"1/2/3/4/5/6/7/8/9/10/0", "no: 1/2/3/4/5/6/7/8/9/10/0||"},
      {"3/x", "no: 3/x||"},
      {"-3", "no: -3||"},
      {"32768", "no: 32768||"},
  };
  for (const auto& [typed, value] : deClientes) EXPECT_EQ(Resuelto(*clientes, typed), value);
  for (const auto& [typed, value] : deCadenas) EXPECT_EQ(Resuelto(*cadenas, typed), value);
}

TEST_F(SelectoresTest, SearchTakesTextLiterally) {
  const std::vector<std::pair<std::string, Textos>> casos = {
      {"", {"12", "40123", "5"}}, {"o'd", {"5"}},      {"\"", {"12"}},     {"; S", {"12"}},
      {"%", {"40123"}},           {"_", {"40123"}},    {"[of", {"40123"}}, {"a]_f", {"40123"}},
      {"!", {"40123"}},           {"100%", {"40123"}}, {"12", {"12"}},     {"NADA", {}},
      {"' OR '1'='1", {}},        {"8", {}},           {"Ñandú", {"12"}},
  };
  for (const auto& [texto, codigos] : casos) {
    SCOPED_TRACE(texto);
    bool shown = false;
    Buscar(*clientes, texto, [&, &esperados = codigos](ui::Form& form) {
      shown = true;
      Textos found = Columna(form, 0);
      std::sort(found.begin(), found.end());
      EXPECT_EQ(found, esperados);
      EXPECT_EQ(form.Find("cmdAceptar")->Enabled(), !esperados.empty());
    });
    EXPECT_TRUE(shown);
  }
  EXPECT_TRUE(toolkit.Messages().empty());
}

TEST_F(SelectoresTest, TheUserSearchesAgainAndAcceptsOrNot) {
  const auto elegido = Buscar(*clientes, "nada", [](ui::Form& form) {
    auto& texto = Control<TextBox>(form, "txtTexto");
    texto.Type("hijos");
    texto.PressEnter();
    EXPECT_EQ(Columna(form, 1), Textos{"O'Donnell e Hijos"});
    Control<Button>(form, "cmdAceptar").Press();
  });
  EXPECT_EQ(elegido, "5");
  for (const auto& sinAceptar : std::initializer_list<std::function<void(ui::Form&)>>{
           [](ui::Form& form) { Control<Button>(form, "cmdCancelar").Press(); }, [](ui::Form&) {},
           [](ui::Form& form) { Control<Grid>(form, "vsFilas").PressEnter(); }}) {
    EXPECT_FALSE(Buscar(*clientes, "nada", sinAceptar));
  }
  for (int i = 0; i < 250; ++i) Cliente("1, " + std::to_string(1000 + i) + ", 'Generado'");
  Buscar(*clientes, "gen", [](ui::Form& form) { EXPECT_EQ(Columna(form, 0).size(), 200U); });
}

TEST_F(SelectoresTest, ChosenLevelReplacesThatLevel) {
  const struct {
    const char* typed;
    int row;
    const char* text;
  } casos[] = {{"", 2, "0/5"},
               {"3", 3, "3/0/7"},
               {"1/2/8/4", 3, "1/2/7/4"},
               {"texto", 1, "3"},
               {"3", 4, "3/0/0/0/0/0/0/0/0/9"}};
  for (const auto& caso : casos) {
    const auto elegido = Buscar(*cadenas, caso.typed, [&](ui::Form& form) {
      Control<Grid>(form, "vsFilas").Click(caso.row, 0);
      Control<Button>(form, "cmdAceptar").Press();
    });
    EXPECT_EQ(elegido, caso.text) << caso.typed;
  }
}

TEST_F(SelectoresTest, DatabaseErrorIsShownAndTheWindowStays) {
  Buscar(*clientes, "", [&](ui::Form& form) {
    conexion->fallo.FallarEn(1);
    Control<Button>(form, "cmdBuscar").Press();
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(Columna(form, 0).empty());
  });
  ASSERT_EQ(toolkit.Messages().size(), 1U);
  EXPECT_EQ(toolkit.Messages()[0].title, "frmBuscar:Buscar");
  EXPECT_EQ(toolkit.Messages()[0].text, "Conexión perdida");
  EXPECT_EQ(toolkit.Messages()[0].icon, ui::Icon::kCritical);
}

}  // namespace
}  // namespace kvraedi
