#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Receipts of goods as receiving advices (RECADV) in the suite's flat-file form.
class KVRAEDI_API clsRecadv : public PropiedadesSesion {
 public:
  /// Full path (UTF-8) of the last file that Generar began; "" before the first.
  const std::string& PathFicheroGenerado() const { return pathFicheroGenerado_; }
  void PathFicheroGenerado(std::string ruta) { pathFicheroGenerado_ = std::move(ruta); }

  /// Writes a receipt of the session's company, named by fiscal year, warehouse and number, into
  /// the folder TempRECADV/year/warehouse of the sending root (EDI_PathFichEnvios). A receipt or a
  /// store that does not exist writes nothing and is no failure. On failure the error is shown in a
  /// message box and the result is false; a file that was partly written stays.
  bool Generar(std::int16_t intEjercicio, std::int16_t intAlmacen, std::int32_t lngEntrada);

 private:
  std::string pathFicheroGenerado_;
};

}  // namespace kvraedi
