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

}  // namespace

std::optional<std::filesystem::path> ShowFileDialog(const ui::FileDialog& dialog) {
  // The window below may go while the dialog is open, and take the dialog with it.
  const QPointer<QFileDialog> native = new QFileDialog(QApplication::activeWindow());
  native->setOption(QFileDialog::DontUseNativeDialog);
  native->setFileMode(QFileDialog::ExistingFile);
  native->setNameFilters(NativeFilters(dialog.filter));
  if (!dialog.title.empty()) native->setWindowTitle(ToQt(dialog.title));
  if (!dialog.folder.empty()) native->setDirectory(ToQt(dialog.folder.string()));
  if (!dialog.name.empty()) native->selectFile(ToQt(dialog.name));
  const bool accepted = native->exec() == QDialog::Accepted;
  std::optional<std::filesystem::path> chosen;
  if (accepted && native && !native->selectedFiles().isEmpty()) {
    chosen = FromQt(native->selectedFiles().first());
  }
  delete native;
  return chosen;
}

}  // namespace kvraedi::qt
