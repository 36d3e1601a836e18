#pragma once

#include "kvraedi/conexion.h"

namespace kvraedi {

/// A transaction of a connection, begun here. Unless it is committed, destroying it rolls it back
/// and drops any error of that.
class Transaccion {
 public:
  /// `conexion` must outlive the transaction.
  explicit Transaccion(Connection& conexion) : conexion_(conexion) { conexion_.BeginTrans(); }
  ~Transaccion();
  Transaccion(const Transaccion&) = delete;
  Transaccion& operator=(const Transaccion&) = delete;

  /// Raises when the database refuses; the transaction is then rolled back when it is destroyed.
  void Confirmar();

 private:
  Connection& conexion_;
  bool abierta_ = true;
};

}  // namespace kvraedi
