#include "platform/qt/qt_toolkit.h"

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QFontMetrics>
#include <QPixmap>
#include <string>

#include "kvraedi/error.h"
#include "platform/qt/file_dialog.h"
#include "platform/qt/form_window.h"
#include "platform/qt/message_box.h"
#include "platform/qt/texts.h"
#include "platform/qt/twips.h"

namespace kvraedi {

QtToolkit::~QtToolkit() {
  SetPointer(ui::Pointer::kDefault);
  for (const auto& [form, window] : windows_) delete window;
  // The windows closed since the last turn of an event loop, which may not turn again.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

qt::FormWindow* QtToolkit::Window(ui::Form* form) const {
  const auto found = windows_.find(form);
  return found == windows_.end() ? nullptr : found->second;
}

ui::Form* QtToolkit::OpenForm(std::string_view name) const {
  for (const auto& [form, window] : windows_) {
    if (form->Name() == name) return form;
  }
  return nullptr;
}

void QtToolkit::SavePicture(ui::Form& form, const std::filesystem::path& file) {
  qt::FormWindow* window = Window(&form);
  if (window == nullptr) return;
  window->Fit();
  window->PaintNow();
  if (!window->grab().save(QString::fromStdU16String(file.u16string()), "PNG")) {
    throw Error(kErrorFile, "QtToolkit", "No se puede escribir la imagen " + file.string());
  }
}

ui::Answer QtToolkit::Show(const ui::MessageBox& box) { return qt::ShowMessageBox(box); }

std::optional<std::filesystem::path> QtToolkit::ChooseFile(const ui::FileDialog& dialog) {
  return qt::ShowFileDialog(dialog);
}

std::optional<std::filesystem::path> QtToolkit::ChooseFolder(const ui::FolderDialog& dialog) {
  return qt::ShowFolderDialog(dialog);
}

void QtToolkit::Open(ui::Form& form, ui::ShowMode mode, ui::Form* owner) {
  qt::FormWindow*& entry = windows_[&form];
  if (entry == nullptr) entry = new qt::FormWindow(form);
  qt::FormWindow* window = entry;
  QWidget* below = owner != nullptr ? Window(owner) : QApplication::activeWindow();
  window->Present(mode == ui::ShowMode::kModal, below == window ? nullptr : below);
}

void QtToolkit::Hide(ui::Form& form) {
  if (qt::FormWindow* window = Window(&form)) window->Leave();
}

void QtToolkit::Close(ui::Form& form) {
  qt::FormWindow* window = Window(&form);
  if (window == nullptr) return;
  windows_.erase(&form);
  window->Detach();
  window->Leave();
  window->deleteLater();
}

void QtToolkit::Repaint(ui::Form& form) {
  if (qt::FormWindow* window = Window(&form)) window->PaintNow();
}

void QtToolkit::SetPointer(ui::Pointer pointer) {
  const bool hourglass = pointer == ui::Pointer::kHourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

int QtToolkit::TextWidth(const ui::Font& font, std::string_view text) {
  QFont native(qt::ToQt(font.family), font.points);
  native.setBold(font.bold);
  return qt::PixelsToTwips(QFontMetrics(native).horizontalAdvance(qt::ToQt(text)));
}

}  // namespace kvraedi
