#include "tests/platform/qt/usuario_qt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <stdexcept>

#include "kvraedi/ui/form.h"

namespace kvraedi::prueba {
namespace {

template <class T>
T& Busco(const ui::Form& form, const std::string& nombre) {
  auto* widget = qobject_cast<T*>(UsuarioQt::Widget(form, nombre));
  if (widget == nullptr) throw std::logic_error("no hay " + nombre);
  return *widget;
}

void Clic(QWidget& widget, const QPoint& punto = {}) {
  QTest::mouseClick(&widget, Qt::LeftButton, {}, punto);
}

}  // namespace

UsuarioQt::UsuarioQt() {
  constexpr int kCadaPoco = 5;  // milliseconds
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Vigila(); });
  timer_.start(kCadaPoco);
}

QWidget* UsuarioQt::Native(const ui::Form& form) {
  QCoreApplication::processEvents();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName().toStdString() != form.Name() || !window->isVisible()) continue;
    window->activateWindow();  // not every window system gives it back after a message box
    static_cast<void>(QTest::qWaitForWindowActive(window));
    return window;
  }
  return nullptr;
}

QWidget* UsuarioQt::Widget(const ui::Form& form, const std::string& control) {
  QWidget* window = Native(form);
  return window == nullptr ? nullptr : window->findChild<QWidget*>(QString::fromStdString(control));
}

void UsuarioQt::Escribe(ui::Form& form, const std::string& campo, const std::string& texto) {
  auto& edit = Busco<QLineEdit>(form, campo);
  Clic(edit);
  edit.selectAll();
  QTest::keyClick(&edit, Qt::Key_Delete);
  for (const QChar letra : QString::fromStdString(texto)) {
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, QString(letra), {});
  }
}

void UsuarioQt::Intro(ui::Form& form, const std::string& control) {
  auto& widget = Busco<QWidget>(form, control);
  widget.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&widget, Qt::Key_Return);
}

void UsuarioQt::Pulsa(ui::Form& form, const std::string& control) {
  auto& button = Busco<QAbstractButton>(form, control);
  Clic(button, QPoint(8, button.height() / 2));
}

void UsuarioQt::Elige(ui::Form& form, const std::string& lista, int indice) {
  auto& combo = Busco<QComboBox>(form, lista);
  combo.setFocus(Qt::MouseFocusReason);
  combo.showPopup();
  combo.view()->setCurrentIndex(combo.model()->index(indice, 0));
  QTest::keyClick(combo.view(), Qt::Key_Return);
}

void UsuarioQt::Celda(ui::Form& form, const std::string& tabla, int fila, int columna) {
  auto& table = Busco<QTableView>(form, tabla);
  if (fila > 0) {
    const QModelIndex index = table.model()->index(fila - 1, columna);
    table.scrollTo(index);
    return Clic(*table.viewport(), table.visualRect(index).center());
  }
  table.setFocus(Qt::MouseFocusReason);
  QHeaderView& header = *table.horizontalHeader();
  const int x = header.sectionViewportPosition(columna) + header.sectionSize(columna) / 2;
  Clic(*header.viewport(), {x, header.height() / 2});
}

void UsuarioQt::Busca(ui::Form& form, const std::string& campo) {
  auto& edit = Busco<QLineEdit>(form, campo);
  edit.setFocus(Qt::TabFocusReason);
  Clic(Busco<QToolButton>(form, campo + "_Buscar"));
}

void UsuarioQt::Cierra(ui::Form& form) {
  if (QWidget* window = Native(form)) window->close();
}

void UsuarioQt::Vigila() {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr || !modal->isVisible()) return;
  if (auto* box = qobject_cast<QMessageBox*>(modal)) return Contesta(*box);
  Usa(*modal);
}

void UsuarioQt::Contesta(QMessageBox& box) {
  const QString icono = QMetaEnum::fromType<QMessageBox::Icon>().valueToKey(box.icon());
  mensajes_.push_back((box.windowTitle() + "|" + box.text() + "|" + icono).toStdString());
  if (box.button(QMessageBox::Yes) == nullptr || respuestas_.empty()) {
    QTest::keyClick(&box, Qt::Key_Return);
    return;
  }
  const bool yes = respuestas_.front() == ui::Answer::kYes;
  respuestas_.pop_front();
  Clic(*box.button(yes ? QMessageBox::Yes : QMessageBox::No));
}

void UsuarioQt::Usa(const QWidget& modal) {
  const std::string nombre = modal.objectName().toStdString();
  auto& cola = pasos_[nombre];
  ui::Form* form = toolkit_.OpenForm(nombre);
  if (cola.empty() || form == nullptr) return;
  const Pasos pasos = std::move(cola.front());
  cola.pop_front();
  pasos(*form);
}

}  // namespace kvraedi::prueba
