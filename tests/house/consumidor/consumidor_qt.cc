// The Qt adapter of the installed package works in a program with its own QApplication.
#include <QApplication>

#include "platform/qt/qt_toolkit.h"

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  kvraedi::QtToolkit toolkit;
  return toolkit.TextWidth({"Sans Serif", 8, false}, "KVRAEDI") > 0 ? 0 : 1;
}
