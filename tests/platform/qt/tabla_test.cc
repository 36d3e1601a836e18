#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPixmap>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "kvraedi/adaptadores.h"
#include "platform/qt/grid_table.h"
#include "tests/platform/qt/frmMuestra.h"
#include "tests/platform/qt/usuario_qt.h"

namespace kvraedi::prueba {
namespace {

class Tabla : public testing::Test {
 protected:
  void SetUp() override {
    InstalarAdaptadores({nullptr, &usuario_.Pantallas(), nullptr});
    form_->Show();
    table_ = qobject_cast<QTableView*>(UsuarioQt::Widget(*form_, "vsLineas"));
    ASSERT_NE(table_, nullptr);
  }
  ~Tabla() override {
    form_->Unload();
    InstalarAdaptadores({});
  }
  std::string Visto(int fila, int columna) const {
    return table_->model()->index(fila - 1, columna).data().toString().toStdString();
  }
  ui::Grid& Lineas() { return form_->vsLineas; }

  UsuarioQt usuario_;
  std::vector<std::string> diario_;
  std::shared_ptr<frmMuestra> form_ = std::make_shared<frmMuestra>(diario_);
  QTableView* table_ = nullptr;
};

TEST_F(Tabla, CienMilFilas) {
  constexpr int kFilas = 100000;
  form_->AnadirLineas(kFilas);
  ASSERT_EQ(table_->model()->rowCount(), kFilas);
  table_->scrollToBottom();
  usuario_.Pantallas().Repaint(*form_);
  const QModelIndex ultima = table_->model()->index(kFilas - 1, frmMuestra::kNumero);
  EXPECT_TRUE(table_->viewport()->rect().contains(table_->visualRect(ultima)));
  EXPECT_EQ(Visto(kFilas, frmMuestra::kNumero), "100000");
  usuario_.Celda(*form_, "vsLineas", kFilas, frmMuestra::kMarca);
  EXPECT_TRUE(Lineas().IsSet(kFilas, frmMuestra::kMarca));
  EXPECT_EQ(Lineas().Row(), kFilas);
  Lineas().Reset();
  EXPECT_EQ(table_->model()->rowCount(), 0);
}

TEST_F(Tabla, ColumnasComoSeDeclaran) {
  EXPECT_TRUE(table_->isColumnHidden(frmMuestra::kClave));
  EXPECT_EQ(table_->columnWidth(frmMuestra::kNombre), 200);  // 3000 twips at 96 dots per inch
  EXPECT_TRUE(table_->model()->headerData(frmMuestra::kNumero, Qt::Horizontal).toString() == "Nº");
  form_->AnadirLineas(1);
  const auto celda = [&](int columna, int role) {
    return table_->model()->index(0, columna).data(role);
  };
  EXPECT_EQ(celda(frmMuestra::kMarca, Qt::CheckStateRole).toInt(), Qt::Unchecked);
  EXPECT_FALSE(celda(frmMuestra::kNumero, Qt::CheckStateRole).isValid());
  EXPECT_EQ(celda(frmMuestra::kNombre, Qt::DisplayRole).toString().toStdString(),
            "Suministros Peña & Hijos");
  constexpr ui::GridColumn kOtras[] = {{"Código", 1440}, {"Nombre", 2880}};
  Lineas().SetColumns(kOtras);
  EXPECT_EQ(table_->model()->rowCount(), 0);
  EXPECT_EQ(table_->model()->columnCount(), 2);
  EXPECT_EQ(table_->columnWidth(1), 192);
}

/// The joined header is one picture: its inner border is not drawn.
TEST_F(Tabla, CabecerasIgualesSeUnen) {
  QHeaderView& header = *table_->horizontalHeader();
  const QImage image = header.viewport()->grab().toImage();
  const auto borde = [&](int columna) {
    const int x = header.sectionViewportPosition(columna) + header.sectionSize(columna) - 1;
    return image.pixel(x, 3) != image.pixel(x - 4, 3);
  };
  EXPECT_TRUE(borde(frmMuestra::kNumero));
  EXPECT_FALSE(borde(frmMuestra::kCodigo));
  EXPECT_TRUE(borde(frmMuestra::kNombre));
}

TEST_F(Tabla, SinRepintadoNoCambiaHastaElFinal) {
  Lineas().SetRedraw(false);
  const std::array<std::string_view, 2> celdas = {"1", "uno"};
  Lineas().AddRow(celdas);
  EXPECT_EQ(table_->model()->rowCount(), 0);
  Lineas().SetRedraw(true);
  EXPECT_EQ(table_->model()->rowCount(), 1);
  Lineas().AddRow(celdas);
  EXPECT_EQ(Visto(2, frmMuestra::kNumero), "uno");
  Lineas().SetRedraw(false);
  Lineas().Reset();
  usuario_.Pantallas().Repaint(*form_);  // a paint in between finds no rows behind the table
  Lineas().SetRedraw(true);
  EXPECT_EQ(table_->model()->rowCount(), 0);
}

TEST_F(Tabla, TecladoMueveLaFilaYElEspacioPulsa) {
  form_->AnadirLineas(5);
  usuario_.Celda(*form_, "vsLineas", 1, frmMuestra::kMarca);
  QTest::keyClick(table_, Qt::Key_Down);
  QTest::keyClick(table_, Qt::Key_Down);
  EXPECT_EQ(Lineas().Row(), 3);
  QTest::keyClick(table_, Qt::Key_Space);
  EXPECT_TRUE(Lineas().IsSet(3, frmMuestra::kMarca));
  QTest::keyClick(table_, Qt::Key_Right);
  QTest::keyClick(table_, Qt::Key_Space);
  EXPECT_EQ(diario_, (std::vector<std::string>{"clase 0", "clic 1,0", "clic 3,0"}));
  EXPECT_TRUE(table_->selectionModel()->isRowSelected(2));
}

TEST_F(Tabla, FilaActualDesdeElProgramaYFilaQuitada) {
  /// The table's own row, from 1; it is the one that is painted as selected.
  const auto fila = [&] {
    const int actual = table_->currentIndex().row();
    EXPECT_EQ(table_->selectionModel()->isRowSelected(actual), actual >= 0);
    return actual + 1;
  };
  form_->AnadirLineas(200);
  for (const int pedida : {150, 0, 2}) {
    Lineas().SetRow(pedida);
    EXPECT_EQ(fila(), pedida);
  }
  Lineas().Reset();
  form_->AnadirLineas(3);
  EXPECT_EQ(Lineas().Row(), 0);
  const struct {
    int quitada, despues;
    const char* visto;
  } quitadas[] = {{2, 2, "3"}, {2, 1, "1"}, {1, 0, ""}};
  for (const auto& [quitada, despues, visto] : quitadas) {
    Lineas().SetRow(quitada);
    Lineas().RemoveRow(quitada);
    EXPECT_EQ(fila(), despues);
    EXPECT_EQ(Lineas().Row(), despues);
    EXPECT_EQ(Visto(despues, frmMuestra::kNumero), visto);
  }
  EXPECT_EQ(table_->model()->rowCount(), 0);
}

TEST_F(Tabla, UnTextoAlgoAnchoSeEstrecha) {
  struct Delegado : qt::GridDelegate {
    using GridDelegate::initStyleOption;
  };
  form_->AnadirLineas(1);
  const QModelIndex celda = table_->model()->index(0, frmMuestra::kNombre);
  const int ancho = table_->fontMetrics().horizontalAdvance(celda.data().toString());
  for (const auto& [parte, estrecha] :
       {std::pair{1.2, false}, std::pair{0.9, true}, std::pair{0.5, false}}) {
    QStyleOptionViewItem option;
    option.widget = table_;
    option.font = table_->font();
    option.rect = QRect(0, 0, static_cast<int>(ancho * parte), 20);
    Delegado().initStyleOption(&option, celda);
    EXPECT_EQ(option.font != table_->font(), estrecha) << parte;
    EXPECT_EQ(option.fontMetrics.horizontalAdvance(option.text) < option.rect.width(),
              parte > 1 || estrecha)
        << parte;
  }
}

}  // namespace
}  // namespace kvraedi::prueba
