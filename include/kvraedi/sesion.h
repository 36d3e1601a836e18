#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/export.h"

namespace kvraedi {

/// The session properties that every public class has. They all write into one process-wide
/// record: the values set last, by whichever class, are the ones that the whole component uses.
class KVRAEDI_API PropiedadesSesion {
 public:
  void EmpresaKestrova(std::shared_ptr<Empresa> empresa);
  /// An open connection; it must stay open while any screen of the component is open.
  void ConexionKestrova(std::shared_ptr<Connection> conexion);
};

/// The properties of the classes that also take the ODBC data and the user. They are kept; no
/// operation reads them.
class KVRAEDI_API PropiedadesSesionOdbc : public PropiedadesSesion {
 public:
  void ODBCNombre(std::string nombre);
  void ODBCUsuario(std::string usuario);
  void ODBCBaseDatos(std::string baseDatos);
  void ODBCPassword(std::string password);
  void Usuario(std::int16_t usuario);
};

}  // namespace kvraedi
