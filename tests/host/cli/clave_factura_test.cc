#include "host/cli/clave_factura.h"

#include <gtest/gtest.h>

#include <array>

#include "host/cli/columnas.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::cli {
namespace {

class Pantalla : public ui::Form {
 public:
  Pantalla() : Form("frmPrueba", "") {
    lista.SetColumns(std::vector<ui::GridColumn>(kColumnas));
    using Fila = std::array<std::string_view, kColumnas>;
    lista.AddRow(Fila{"0",   "",  "2",    "4711", "",   "",  "",  "",  "", "",
                      "380", "0", "2024", "",     "FD", "0", "0", "0", "", "0"});
    lista.AddRow(Fila{"0", "",  "2", "4711", "",   "",  "",  "",  "",           "",
                      "0", "0", "0", "",     "FT", "1", "3", "1", "05/06/2024", "88"});
  }
  ui::Grid lista{*this, "vsDocs"};
};

TEST(ClaveFactura, NamesTheRowThatItMeans) {
  const Pantalla pantalla;
  const struct {
    const char* texto;
    bool directa;
    bool ticket;
  } casos[] = {
      {"2024/2/4711", true, false},
      {"2024/02/004711/380", true, false},
      {"2024/2/4711/381", false, false},
      {"2023/2/4711", false, false},
      {"2024/1/4711", false, false},
      {"2024/2/471", false, false},
      {"0/2/4711", false, false},
      {"FT:3/1/05/06/2024/88", false, true},
      {"FT:3/1/5/6/2024/88", false, true},
      {"FT:3/1/2024-06-05/88", false, true},
      {"FT:3/1/06/05/2024/88", false, false},
      {"FT:3/2/05/06/2024/88", false, false},
      {"FT:4/1/05/06/2024/88", false, false},
      {"FT:3/1/05/06/2024/89", false, false},
  };
  for (const auto& caso : casos) {
    const auto clave = ClaveFactura::Leer(caso.texto);
    ASSERT_TRUE(clave) << caso.texto;
    EXPECT_EQ(clave->Coincide(pantalla.lista, 1), caso.directa) << caso.texto;
    EXPECT_EQ(clave->Coincide(pantalla.lista, 2), caso.ticket) << caso.texto;
  }
}

TEST(ClaveFactura, RefusesOtherForms) {
  for (const char* texto :
       {"", "2024", "2024/2", "2024/2/", "a/2/3", "2024/2/3/4/5", "2024/2/3.5", "2024/2/ 3",
        "FT:", "FT:1/2/3", "FT:1/2//3", "FT:1/2/31/02/2024/3", "FT:x/2/01/02/2024/3",
        "FT:1/2/01/02/2024/", "ft:3/1/05/06/2024/88", "2024/2/99999999999999999999"}) {
    EXPECT_FALSE(ClaveFactura::Leer(texto)) << texto;
  }
}

}  // namespace
}  // namespace kvraedi::cli
