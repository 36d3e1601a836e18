#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/export.h"
#include "kvraedi/impresion.h"

namespace kvraedi {

/// Where a table of a report is read and with which logon.
struct OrigenTabla {
  std::string ubicacion;  ///< "database.dbo.table"
  std::string odbcNombre;
  std::string baseDatos;
  std::string usuario;
  std::string password;
};

/// A report of the suite: a file with a layout and the tables that it reads. Its tables are pointed
/// at a database and filtered before it is shown or printed. Operations raise `Error`.
class KVRAEDI_API Informe {
 public:
  virtual ~Informe();
  /// Names of its tables, in the report's order.
  virtual std::vector<std::string> Tablas() const = 0;
  virtual void Ubicar(std::string_view tabla, const OrigenTabla& origen) = 0;
  /// The report within this one that has that name ("Empresa.rpt"); null when there is none. It
  /// belongs to this one.
  virtual Informe* Subinforme(std::string_view nombre) = 0;
  /// Reads only those rows whose field of that name holds the text, besides earlier conditions;
  /// tables without the field, and the reports within, are read whole. Tables that the report reads
  /// row by row within another one follow that one instead.
  virtual void Filtrar(std::string_view campo, std::string_view valor) = 0;
  /// Reads the tables and fills the layout.
  virtual DocumentoImprimible Documento() = 0;
};

}  // namespace kvraedi
