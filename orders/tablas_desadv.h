#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/conexion.h"

namespace kvraedi::desadv {

/// The staging tables of one run: one row for each delivery note, and one for each article of a
/// note. They are temporary, of this connection alone.
struct Tablas {
  /// Names made from the tick count, so that runs do not collide.
  explicit Tablas(std::int32_t tickCount);
  void Crear(Connection& conexion) const;
  void Borrar(Connection& conexion) const;

  std::string cabecera;
  std::string lineas;
};

}  // namespace kvraedi::desadv
