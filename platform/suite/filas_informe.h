#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kvraedi/conexion.h"
#include "platform/suite/plantilla_informe.h"

namespace kvraedi::suite {

/// A row that was read: the texts of its columns; a null has none. Names are the template's.
class FilaInforme {
 public:
  /// `exterior`, the row within which it was read, may be null; it must outlive this one.
  explicit FilaInforme(const FilaInforme* exterior) : exterior_(exterior) {}
  void Poner(const std::string& nombre, std::optional<std::string> texto) {
    textos_[nombre] = std::move(texto);
  }
  /// The text of a field of this row, or of the nearest one around it that has it.
  const std::optional<std::string>& Texto(const std::string& nombre) const;

 private:
  const FilaInforme* exterior_;
  std::map<std::string, std::optional<std::string>> textos_;
};

/// How statements name each table.
using OrigenesInforme = std::map<std::string, std::string>;
using FiltrosInforme = std::vector<std::pair<std::string, std::string>>;  // field and value

/// Where a table is read, as a statement names it. `ubicacion` is its place, "database.dbo.table";
/// what is left out is the session's own. Raises `Error`.
std::string NombreSql(std::string_view ubicacion);

/// The rows of a table at a place of a statement: those that the filters on its columns leave or,
/// within another row, those that are linked with that one.
std::vector<FilaInforme> LeerFilas(Connection& conexion, const TablaInforme& tabla,
                                   const std::string& origen, const FiltrosInforme& filtros,
                                   const FilaInforme* exterior);

}  // namespace kvraedi::suite
