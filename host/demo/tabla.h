#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Key of an invoice: the first five columns of every table of invoices.
struct Clave {
  std::int16_t empresa = 0;
  std::int16_t ejercicio = 0;
  std::int16_t serie = 0;
  std::int32_t codigo = 0;
  std::int16_t tipoDoc = 0;
};

/// Key of a ticket invoice.
struct ClaveTicket {
  std::int16_t empresa = 0;
  std::int16_t almacen = 0;
  std::int16_t caja = 0;
  FechaHora fecha;
  std::int32_t codigo = 0;
};

/// Contents of a binary column, in plain characters.
struct Binario {
  std::string_view contenido;
};

/// Inserts rows into some columns of a table, one statement a row: all the statements of a table
/// have the same shape, so that the database prepares one of them.
class Tabla {
 public:
  Tabla(Connection& conexion, std::string_view nombre, std::string_view columnas);

  /// The values of a row, in column order; a key counts as its five columns, nullptr and an
  /// empty optional as NULL.
  template <class... Valores>
  void Insertar(const Valores&... valores) {
    sql_.resize(cabecera_);
    (Poner(valores), ...);
    sql_.back() = ')';
    conexion_.Execute(sql_);
  }

 private:
  void Poner(std::integral auto valor) { PonerEntero(static_cast<std::int64_t>(valor)); }
  void Poner(Currency valor);
  void Poner(std::string_view texto);
  void Poner(const FechaHora& fecha);
  void Poner(std::nullptr_t);
  void Poner(Binario binario);
  template <class T>
  void Poner(const std::optional<T>& valor) {
    if (valor) {
      Poner(*valor);
    } else {
      Poner(nullptr);
    }
  }
  void Poner(const Clave& clave);
  void Poner(const ClaveTicket& clave);
  void PonerEntero(std::int64_t valor);

  Connection& conexion_;
  std::string sql_;
  std::size_t cabecera_;
};

}  // namespace kvraedi::demo
