#include "platform/qt/qt_messages.h"

#include <QString>
#include <QtGlobal>
#include <cstdio>

namespace kvraedi {
namespace {

void TellOnlyFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type != QtFatalMsg) return;
  std::fprintf(stderr, "kvraedi: el sistema gráfico no puede seguir: %s\n",
               qUtf8Printable(text.simplified()));
}

}  // namespace

void QuietQtMessages() { qInstallMessageHandler(TellOnlyFatal); }

}  // namespace kvraedi
