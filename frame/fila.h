#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvraedi/conexion.h"
#include "kvraedi/error.h"

namespace kvraedi {

/// Runs `cuerpo`. An `Error` that leaves it is raised again with `lugar()` before its text, so that
/// the user learns where the value is that was refused: "línea 3: columna Precio: ...".
template <class Lugar, class Cuerpo>
decltype(auto) ConLugar(Lugar&& lugar, Cuerpo&& cuerpo) {
  try {
    return std::forward<Cuerpo>(cuerpo)();
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(), lugar() + ": " + error.Description());
  }
}

/// The row on which a recordset stands, whose columns are told by name in what a value refuses.
class Fila {
 public:
  explicit Fila(const Recordset& rs) : rs_(rs) {}
  /// For the rows of a loop: `columnas` are looked up once and then read by their place there,
  /// which an enumeration names. The names outlive the object.
  Fila(const Recordset& rs, std::span<const std::string_view> columnas)
      : rs_(rs), columnas_(columnas) {
    for (const auto columna : columnas) campos_.push_back(rs.Field(columna));
  }

  const Recordset& Registros() const { return rs_; }

  template <class T>
  T Get(std::string_view columna) const {
    return Leer(columna, [&] { return rs_.Get<T>(columna); });
  }
  template <class T>
  T GetOrEmpty(std::string_view columna) const {
    return Leer(columna, [&] { return rs_.GetOrEmpty<T>(columna); });
  }
  bool IsNull(std::string_view columna) const { return rs_.IsNull(columna); }

  template <class T>
  T Get(std::size_t columna) const {
    return Leer(columnas_[columna], [&] { return rs_.Get<T>(campos_[columna]); });
  }
  template <class T>
  T GetOrEmpty(std::size_t columna) const {
    return Leer(columnas_[columna], [&] { return rs_.GetOrEmpty<T>(campos_[columna]); });
  }
  bool IsNull(std::size_t columna) const { return rs_.IsNull(campos_[columna]); }

 private:
  template <class Lectura>
  static auto Leer(std::string_view columna, Lectura&& lectura) {
    return ConLugar([&] { return "columna " + std::string(columna); },
                    std::forward<Lectura>(lectura));
  }

  const Recordset& rs_;
  std::span<const std::string_view> columnas_;
  std::vector<int> campos_;
};

}  // namespace kvraedi
