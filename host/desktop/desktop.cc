#include "host/desktop/desktop.h"

#include <QApplication>

#include "host/desktop/frmPrincipal.h"
#include "host/desktop/look.h"
#include "host/desktop/pictures.h"
#include "kvraedi/adaptadores.h"
#include "kvraedi/error.h"
#include "platform/qt/qt_messages.h"
#include "platform/qt/qt_toolkit.h"

namespace kvraedi::desktop {
namespace {

bool HasScreen() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  }
  return false;
#else
  return true;
#endif
}

/// Qt ends the process when there is no screen; it is asked for before.
void ChooseScreen(bool needed) {
  if (HasScreen()) return;
  constexpr int kErrorNoScreen = 429;
  if (needed) throw Error(kErrorNoScreen, "desktop", "No hay ninguna pantalla en este equipo");
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Installs the adapters as long as it lives, and takes the toolkit away at the end.
class Installed {
 public:
  Installed(const DesktopSession& session, ui::Toolkit& toolkit) : session_(session) {
    InstalarAdaptadores({&session.entorno, &toolkit, &session.suite});
  }
  ~Installed() { InstalarAdaptadores({&session_.entorno, nullptr, &session_.suite}); }
  Installed(const Installed&) = delete;
  Installed& operator=(const Installed&) = delete;

 private:
  const DesktopSession& session_;
};

std::string CompanyName(const DesktopSession& session) {
  if (!session.company_name.empty()) return session.company_name;
  const std::string code = std::to_string(session.company->CodigoEmpresa());
  const auto rs = session.connection->Open("SELECT Nombre_1 FROM Empresas WHERE Codigo = " + code);
  const std::string name = rs->Eof() ? std::string() : rs->GetOrEmpty<std::string>(0);
  return name.empty() ? "Empresa " + code : name;
}

std::shared_ptr<frmPrincipal> OpenMain(const DesktopSession& session) {
  auto window =
      std::make_shared<frmPrincipal>(session.connection, session.company, CompanyName(session));
  window->onUnload = [] { QCoreApplication::quit(); };
  window->Show();
  return window;
}

}  // namespace

int RunDesktop(const DesktopSession& session) {
  QuietQtMessages();
  ChooseScreen(!session.pictures);
  int argc = 1;
  char program[] = "kvraedi";
  char* argv[] = {program, nullptr};
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(application);
  QtToolkit toolkit;
  const Installed installed(session, toolkit);
  const auto window = OpenMain(session);
  if (!session.pictures) return QApplication::exec();
  TakePictures(toolkit, *window, *session.pictures);
  return 0;
}

}  // namespace kvraedi::desktop
