#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/entorno.h"
#include "kvraedi/suite.h"

namespace kvraedi::desktop {

/// Asks for pictures of the screens instead of a session.
struct Pictures {
  std::filesystem::path folder;  ///< must exist
  std::string first_date;        ///< "dd/mm/yyyy": the range that the invoice list shows
  std::string last_date;
};

/// What the desktop works on. The ports must outlive RunDesktop.
struct DesktopSession {
  std::shared_ptr<Connection> connection;
  std::shared_ptr<Empresa> company;
  std::string company_name;  ///< for the main window; empty takes it from the database
  Entorno& entorno;
  Suite& suite;
  /// While they are taken only the tables of a printed received invoice are written.
  std::optional<Pictures> pictures;
};

/// Opens the main window and returns when the user leaves it, with 0. While it runs, the adapters
/// in use are the session's ports and the Qt screens; afterwards there is no toolkit. With pictures
/// it saves them, needs no screen, and gives back 0. Raises `Error` when there is no screen or a
/// picture cannot be taken.
int RunDesktop(const DesktopSession& session);

}  // namespace kvraedi::desktop
