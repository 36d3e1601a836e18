#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "platform/qt/qt_toolkit.h"
#include "reception/frmEditor_Comentarios.h"
#include "reception/frmPdteClasificar.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi::prueba {
namespace {

void Teclea(QWidget& campo, const QString& texto) {
  for (const QChar letra : texto) {
    QKeyEvent tecla(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(letra));
    QApplication::sendEvent(&campo, &tecla);
  }
}

class RecepcionQt : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &qt, .suite = &suite});
  }
  template <class Widget>
  Widget& Hijo(const char* ventana, const char* nombre) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == ventana) return *window->findChild<Widget*>(nombre);
    }
    throw Error(1, "prueba", ventana);
  }
  QtToolkit qt;
};

TEST_F(RecepcionQt, TheCommentIsWrittenWithTheKeyboardAlone) {
  const auto editor = std::make_shared<frmEditor_Comentarios>();
  editor->Comentario("ya estaba");
  editor->Show();
  auto& campo = Hijo<QPlainTextEdit>("frmEditor_Comentarios", "txtComent");
  const auto texto = [&] { return dynamic_cast<ui::TextArea&>(*editor->Find("txtComent")).Text(); };
  campo.moveCursor(QTextCursor::End);
  Teclea(campo, QStringLiteral(", ñandú"));
  QTest::keyClick(&campo, Qt::Key_Return);
  Teclea(campo, QStringLiteral("l'x"));
  EXPECT_EQ(texto(), "ya estaba, ÑANDÚ\r\nL'X");
  QTest::keyClick(&campo, Qt::Key_Left);
  Teclea(campo, QStringLiteral("ab"));
  EXPECT_EQ(texto(), "ya estaba, ÑANDÚ\r\nL'ABX") << "the cursor stays where it writes";
  QTest::keyClick(&campo, Qt::Key_F9);
  EXPECT_TRUE(editor->Aceptado());
  EXPECT_EQ(editor->Comentario(), "ya estaba, ÑANDÚ\r\nL´ABX");
  EXPECT_FALSE(editor->Loaded());
}

TEST_F(RecepcionQt, EscapeClosesADialogButNotAScreen) {
  const auto editor = std::make_shared<frmEditor_Comentarios>();
  editor->Comentario("ya estaba");
  QTimer::singleShot(0, [&] {
    QTest::keyClick(&Hijo<QPlainTextEdit>("frmEditor_Comentarios", "txtComent"), Qt::Key_Escape);
    EXPECT_FALSE(editor->Loaded());
    editor->Unload();
  });
  editor->Show(ui::ShowMode::kModal);
  EXPECT_FALSE(editor->Aceptado());

  const auto pendientes = std::make_shared<frmPdteClasificar>();
  pendientes->Show();
  QTest::keyClick(&Hijo<QTableView>("frmPdteClasificar", "vsDocs"), Qt::Key_Escape);
  EXPECT_TRUE(pendientes->Loaded());
  pendientes->Unload();
}

TEST_F(RecepcionQt, TwoHeaderRowsTakeTheRoomOfTwo) {
  base->Execute(
      "INSERT INTO EDI_PdteClasificar (EDIFichero, EDIFechaRecepcion, Proveedor)"
      " VALUES ('a', '01/02/2024', 'dos\r\nlíneas')");
  const auto pendientes = std::make_shared<frmPdteClasificar>();
  pendientes->Show();
  auto& tabla = Hijo<QTableView>("frmPdteClasificar", "vsDocs");
  const int fila = tabla.fontMetrics().height();
  EXPECT_GT(tabla.horizontalHeader()->height(), 2 * fila);
  EXPECT_EQ(tabla.model()->rowCount(), 1);
  EXPECT_EQ(tabla.model()->index(0, 2).data().toString(), QStringLiteral("dos líneas"));
  EXPECT_TRUE(tabla.isColumnHidden(6) && tabla.isColumnHidden(7));
  const int antes = tabla.columnWidth(0);
  dynamic_cast<ui::Grid&>(*pendientes->Find("vsDocs")).FitColumn(0);
  EXPECT_LT(tabla.columnWidth(0), antes);
  pendientes->Unload();
}

}  // namespace
}  // namespace kvraedi::prueba
