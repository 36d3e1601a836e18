#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Orders as ORDERS messages in the suite's flat-file form.
class KVRAEDI_API clsOrders : public PropiedadesSesion {
 public:
  /// Full path (UTF-8) of the last file that Generar began; "" before the first.
  const std::string& PathFicheroGenerado() const { return pathFicheroGenerado_; }
  void PathFicheroGenerado(std::string ruta) { pathFicheroGenerado_ = std::move(ruta); }

  /// Writes a supplier order of the session's company into the folder TempOrders of the sending
  /// root (EDI_PathFichEnvios). An order that does not exist, has no lines, or whose supplier or
  /// store does not exist, writes nothing and is no failure. On failure the error is shown in a
  /// message box and the result is false; a file that was partly written stays.
  bool Generar(std::int32_t lngPedido);

  /// Takes in the received orders, the files *.dat of the folder ORDERS/Temp of the reception root
  /// (EDI_PathFichRecibir): reads them into the staging tables, moves them to OK (or to Error, when
  /// their first line is not that of an order) and makes customer orders of them. Each of the two
  /// steps shows its error in a message box. False when the folders could not be made ready.
  bool Insertar();

 private:
  std::string pathFicheroGenerado_;
};

}  // namespace kvraedi
