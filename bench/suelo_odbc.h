#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/odbc/odbc_api.h"

namespace kvraedi::bench {

/// A connection of the bare ODBC calls: one statement handle, rows fetched in blocks into bound
/// columns.
class SueloOdbc {
 public:
  explicit SueloOdbc(const std::string& cadena);
  ~SueloOdbc();
  SueloOdbc(const SueloOdbc&) = delete;
  SueloOdbc& operator=(const SueloOdbc&) = delete;

  /// Runs a statement in UTF-16 to its last result; the values of each row go into a block of their
  /// own. Gives back how many rows came.
  std::size_t Enviar(std::vector<SQLWCHAR>& sql);

 private:
  void Leer(int columnas);

  SQLHANDLE entorno_ = nullptr, conexion_ = nullptr, sentencia_ = nullptr;
  std::vector<std::string> filas_;
};

}  // namespace kvraedi::bench
