#include "platform/qt/file_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QPointer>

#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

/// "Textos|*.txt;*.csv" as "Textos (*.txt *.csv)"; patterns that the description repeats in
/// parentheses are said once.
QStringList NativeFilters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString description = parts[i].section('(', 0, 0).trimmed();
    filters += description + " (" + QString(parts[i + 1]).replace(';', ' ').trimmed() + ")";
  }
  return filters;
}

/// The window below may go while the dialog is open, and take the dialog with it.
using NativeDialog = QPointer<QFileDialog>;

NativeDialog NewDialog(const std::string& title, const std::filesystem::path& folder) {
  NativeDialog native = new QFileDialog(QApplication::activeWindow());
  native->setOption(QFileDialog::DontUseNativeDialog);
  if (!title.empty()) native->setWindowTitle(ToQt(title));
  if (!folder.empty()) native->setDirectory(QString::fromStdU16String(folder.u16string()));
  return native;
}

std::optional<std::filesystem::path> Ask(const NativeDialog& native) {
  const bool accepted = native->exec() == QDialog::Accepted;
  std::optional<std::filesystem::path> chosen;
  if (accepted && native && !native->selectedFiles().isEmpty()) {
    chosen = FromQt(native->selectedFiles().first());
  }
  delete native;
  return chosen;
}

}  // namespace

std::optional<std::filesystem::path> ShowFileDialog(const ui::FileDialog& dialog) {
  const NativeDialog native = NewDialog(dialog.title, dialog.folder);
  native->setFileMode(QFileDialog::ExistingFile);
  native->setNameFilters(NativeFilters(dialog.filter));
  if (!dialog.name.empty()) native->selectFile(ToQt(dialog.name));
  return Ask(native);
}

std::optional<std::filesystem::path> ShowFolderDialog(const ui::FolderDialog& dialog) {
  const NativeDialog native = NewDialog(dialog.title, dialog.folder);
  native->setFileMode(QFileDialog::Directory);
  native->setOption(QFileDialog::ShowDirsOnly);
  return Ask(native);
}

}  // namespace kvraedi::qt
