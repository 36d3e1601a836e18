#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

/// Runs a script, batch by batch, on a connection that takes one at a time.
void EjecutarScript(Connection& conexion, std::string_view script);

/// Collects statements and sends many at once, so that a server far away is asked seldom. A query
/// sees all statements before it; what fails is told by the call that sends.
class EnLotes : public Connection {
 public:
  explicit EnLotes(Connection& conexion) : conexion_(conexion) {}

  std::unique_ptr<Recordset> Open(std::string_view sql) override;
  /// Gives back 0: what a statement matches is not known yet.
  std::int64_t Execute(std::string_view sql) override;
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  /// Sends what is collected.
  void Enviar();

 private:
  Connection& conexion_;
  std::string lote_;
};

/// A transaction that is rolled back unless it is confirmed.
class Transaccion {
 public:
  explicit Transaccion(Connection& conexion) : conexion_(conexion) { conexion_.BeginTrans(); }
  ~Transaccion();
  Transaccion(const Transaccion&) = delete;
  Transaccion& operator=(const Transaccion&) = delete;
  void Confirmar();

 private:
  Connection& conexion_;
  bool abierta_ = true;
};

}  // namespace kvraedi::demo
