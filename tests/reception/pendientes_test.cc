#include <gtest/gtest.h>

#include "kvraedi/frmclsPdteClasificar.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {
namespace {

using Filas = std::vector<std::string>;

class PendientesTest : public Escenario {
 protected:
  const ui::Grid& Abrir() {
    clase.Show(0, nullptr);
    return dynamic_cast<const ui::Grid&>(*toolkit.OpenForm("frmPdteClasificar")->Find("vsDocs"));
  }
  void TearDown() override {
    if (ui::Form* form = toolkit.OpenForm("frmPdteClasificar")) form->Unload();
    Escenario::TearDown();
  }
  frmclsPdteClasificar clase;
};

TEST_F(PendientesTest, NewestFirstWhateverTheCompany) {
  base->Run(R"(
INSERT INTO EDI_PdteClasificar VALUES ('b.txt', '01/02/2024 10:00:00', 2, 1, '84', 'Ñ', '85', 'C1');
INSERT INTO EDI_PdteClasificar VALUES ('a.txt', '02/02/2024', 2, 1, NULL, NULL, NULL, NULL);
INSERT INTO EDI_PdteClasificar VALUES ('c.txt', '01/02/2023 09:08:07', 3, 2, '86', 'P', '87', 'C2'))");
  const ui::Grid& lista = Abrir();
  Filas filas;
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    std::string texto;
    for (int columna = 0; columna < lista.Cols(); ++columna) {
      texto.append(lista.Cell(fila, columna)).append("|");
    }
    filas.push_back(texto);
  }
  EXPECT_EQ(filas, (Filas{"a.txt|||||02/02/2024|2|1|", "b.txt|84|Ñ|85|C1|01/02/2024 10:00:00|2|1|",
                          "c.txt|86|P|87|C2|01/02/2023 9:08:07|3|2|"}));
  std::string cabecera;
  for (const ui::GridColumn& columna : lista.Columns()) {
    if (!columna.hidden) cabecera.append(columna.group).append("/").append(columna.header) += ' ';
  }
  EXPECT_EQ(cabecera,
            "Fichero/Fichero Proveedor/GLN Proveedor/Nombre Comprador/GLN Comprador/Nombre "
            "F. Recepción/F. Recepción ");
}

TEST_F(PendientesTest, AFailureIsToldAndTheListStaysEmpty) {
  conexion->fallo.FallarEn(1);
  EXPECT_EQ(Abrir().Rows(), 1);
  EXPECT_EQ(toolkit.Messages().back().title, "frmPdteClasificar:Cargar");
}

}  // namespace
}  // namespace kvraedi
