#include "host/desktop/look.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>

namespace kvraedi::desktop {
namespace {

constexpr char kMainWindow[] = R"(
QLabel#lblEmpresa { font-size: 15pt; font-weight: 600; color: #1f5fa8; }
QLabel#lblIndicacion { color: #5b6773; }
QPushButton#cmdFacturasEmitidas, QPushButton#cmdCentrosAdministrativos,
QPushButton#cmdFacturasRecibidas, QPushButton#cmdPdteClasificar {
  background: #1f5fa8; color: white; font-size: 11pt; border: 2px solid #1f5fa8;
  border-radius: 4px; padding: 9px; margin: 6px 0px;
}
QPushButton#cmdFacturasEmitidas:hover, QPushButton#cmdCentrosAdministrativos:hover,
QPushButton#cmdFacturasRecibidas:hover, QPushButton#cmdPdteClasificar:hover {
  background: #2a70bd;
}
QPushButton#cmdFacturasEmitidas:focus, QPushButton#cmdCentrosAdministrativos:focus,
QPushButton#cmdFacturasRecibidas:focus, QPushButton#cmdPdteClasificar:focus {
  border-color: #8db8e6;
}
QPushButton#cmdFacturasEmitidas:pressed, QPushButton#cmdCentrosAdministrativos:pressed,
QPushButton#cmdFacturasRecibidas:pressed, QPushButton#cmdPdteClasificar:pressed {
  background: #174a84;
}
)";

QPalette Colours() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0xf3, 0xf5, 0xf8));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf9, 0xfc));
  palette.setColor(QPalette::Button, QColor(0xe9, 0xed, 0xf2));
  palette.setColor(QPalette::Highlight, QColor(0x1f, 0x5f, 0xa8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0x1f, 0x29, 0x33));
    palette.setColor(QPalette::Disabled, role, QColor(0x98, 0xa2, 0xad));
  }
  return palette;
}

}  // namespace

void ApplyLook(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(Colours());
  application.setStyleSheet(QString::fromUtf8(kMainWindow));
  // The menus of the fields are Qt's own; they stay English where its translations are missing.
  auto* translator = new QTranslator(&application);
  if (translator->load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace kvraedi::desktop
