#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QGraphicsView>
#include <QPrintPreviewWidget>
#include <QScrollBar>
#include <string>

#include "kvraedi/adaptadores.h"
#include "kvraedi/ui/form.h"
#include "platform/qt/impresora_qt.h"
#include "platform/qt/qt_toolkit.h"

namespace kvraedi {
namespace {

DocumentoImprimible Tabla(int filas) {
  std::string html = "<table width='100%'><thead><tr><th>CABECERA</th></tr></thead>";
  for (int i = 0; i < filas; ++i)
    html += "<tr><td>Línea &lt;" + std::to_string(i) + "&gt;</td></tr>";
  return {"Título ñ", html + "</table>", "Pie"};
}

int Veces(const std::string& texto, const std::string& trozo) {
  int veces = 0;
  for (auto i = texto.find(trozo); i != std::string::npos; i = texto.find(trozo, i + 1)) ++veces;
  return veces;
}

TEST(ImpresoraQt, MakesPdfFilesOfAsManyPagesAsTheTextNeeds) {
  ImpresoraQt impresora;
  for (const auto& [filas, paginas] : {std::pair(0, 1), {40, 1}, {80, 2}, {400, 7}}) {
    const std::string pdf = impresora.Pdf(Tabla(filas));
    EXPECT_EQ(pdf.rfind("%PDF-1.", 0), 0U);
    EXPECT_NE(pdf.find("%%EOF", pdf.size() - 16), std::string::npos);
    EXPECT_EQ(Veces(pdf, "/Type /Page\n"), paginas) << filas;
    EXPECT_NE(pdf.find("/MediaBox [0 0 595.000000 842.000000]"), std::string::npos);
    EXPECT_GE(Veces(pdf, "/FontFile2"), 1) << "the font goes with the file";
  }
}

TEST(ImpresoraQt, TheSameDocumentGivesTheSameBytes) {
  ImpresoraQt impresora;
  const std::string pdf = impresora.Pdf(Tabla(3));
  EXPECT_TRUE(pdf == ImpresoraQt().Pdf(Tabla(3)));
  EXPECT_FALSE(pdf == impresora.Pdf(Tabla(4)));
  EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
}

class frmVista : public ui::Form {
 public:
  frmVista() : Form("frmVista", "Vista") { SetLayout(visor); }
  ui::ReportViewer visor{*this, "visor"};
};

class VisorQtTest : public testing::Test {
 protected:
  void SetUp() override {
    InstalarAdaptadores({.toolkit = &toolkit});
    form->visor.SetTools({.navigation = true, .print = true});
    form->visor.SetSource(Tabla(80));
    form->visor.SetZoom(120);
    form->Show();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "frmVista") ventana = widget;
    }
    vista = ventana->findChild<QPrintPreviewWidget*>();
  }
  void TearDown() override {
    form->Unload();
    InstalarAdaptadores({});
  }
  /// Uses the toolbar's button of that text.
  void Pulsar(const char* texto) {
    for (QAction* accion : ventana->findChildren<QAction*>()) {
      if (accion->text() == QString::fromUtf8(texto)) return accion->trigger();
    }
    FAIL() << texto;
  }

  QtToolkit toolkit;
  std::shared_ptr<frmVista> form = std::make_shared<frmVista>();
  QWidget* ventana = nullptr;
  QPrintPreviewWidget* vista = nullptr;
};

TEST_F(VisorQtTest, TheToolbarMovesThroughThePages) {
  ASSERT_NE(vista, nullptr);
  EXPECT_EQ(form->visor.Pages(), 2);
  EXPECT_EQ(vista->pageCount(), 2);
  EXPECT_DOUBLE_EQ(vista->zoomFactor(), 1.2);
  Pulsar("▶");
  EXPECT_EQ(form->visor.Page(), 2);
  EXPECT_EQ(vista->currentPage(), 2);
  Pulsar("▶");
  EXPECT_EQ(vista->currentPage(), 2) << "there is no other page";
  Pulsar("◀");
  Pulsar("+");
  EXPECT_EQ(form->visor.Page(), 1);
  EXPECT_DOUBLE_EQ(vista->zoomFactor(), 1.5);
  QScrollBar* const barra = vista->findChild<QGraphicsView*>()->verticalScrollBar();
  barra->setValue(barra->maximum());
  EXPECT_EQ(form->visor.Page(), 2) << "scrolling changes the page too";
  form->visor.SetSource(Tabla(1));
  EXPECT_EQ(vista->pageCount(), 1);
}

TEST_F(VisorQtTest, PrintsAndClosesByItsButtons) {
  int impresos = 0;
  form->visor.onPrint = [&] { ++impresos; };
  form->visor.onClose = [&] { form->Unload(); };
  Pulsar("&Imprimir");
  EXPECT_EQ(impresos, 1);
  Pulsar("&Cerrar");
  EXPECT_FALSE(form->Loaded());
}

}  // namespace
}  // namespace kvraedi
