#include "platform/qt/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

QMessageBox::Icon NativeIcon(ui::Icon icon) {
  switch (icon) {
    case ui::Icon::kInformation:
      return QMessageBox::Information;
    case ui::Icon::kExclamation:
      return QMessageBox::Warning;
    case ui::Icon::kCritical:
      return QMessageBox::Critical;
    case ui::Icon::kQuestion:
      return QMessageBox::Question;
    case ui::Icon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

void AddButtons(QMessageBox& native, const ui::MessageBox& box) {
  if (box.buttons == ui::Buttons::kOk) {
    native.addButton(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    return;
  }
  native.addButton(QMessageBox::Yes)->setText(QStringLiteral("&Sí"));
  native.addButton(QMessageBox::No)->setText(QStringLiteral("&No"));
  native.setDefaultButton(box.preset == ui::Answer::kNo ? QMessageBox::No : QMessageBox::Yes);
}

ui::MessageBox FailureBox(const std::exception& failure) {
  return {.text = failure.what(), .title = "Error", .icon = ui::Icon::kCritical};
}

}  // namespace

ui::Answer ShowMessageBox(const ui::MessageBox& box) {
  // The window below may go while the box is open, and take the box with it.
  const QPointer<QMessageBox> native = new QMessageBox(QApplication::activeWindow());
  native->setTextFormat(Qt::PlainText);
  native->setWindowTitle(ToQt(box.title));
  native->setText(ToQt(box.text));
  native->setIcon(NativeIcon(box.icon));
  AddButtons(*native, box);
  const int pressed = native->exec();
  delete native;
  if (box.buttons == ui::Buttons::kOk) return ui::Answer::kOk;
  return pressed == QMessageBox::Yes ? ui::Answer::kYes : ui::Answer::kNo;
}

void ShowFailure(const std::exception& failure) { ShowMessageBox(FailureBox(failure)); }

void ShowFailureLater(const std::exception& failure) {
  QTimer::singleShot(0, qApp, [box = FailureBox(failure)] { ShowMessageBox(box); });
}

}  // namespace kvraedi::qt
