#pragma once

#include "host/demo/esquema.h"
#include "platform/os/entorno_sistema.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi {

/// An empty database in memory, the same for every input: what one writes is rolled back.
inline Connection& BaseDatos() {
  static SqliteConnection& conexion = [&]() -> SqliteConnection& {
    SqliteOptions opciones;
    opciones.create = true;
    static SqliteConnection nueva(":memory:", opciones);
    for (const auto script : demo::kScriptsSqlite) nueva.Run(script);
    return nueva;
  }();
  return conexion;
}

inline Entorno& Maquina() {
  static EntornoSistema entorno({.ahora = FechaHora{2026, 1, 2, 3, 4, 5}});
  return entorno;
}

}  // namespace kvraedi
