#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"

namespace kvraedi::cli {

/// Writes every statement to a file before it is run, each ended by a NUL. What goes to the
/// database without a statement of its own (a transaction's begin and end, the bytes of a field)
/// is written as a comment.
class RegistroSql : public ConnectionWrapper {
 public:
  /// Raises what the file raises when it cannot be written.
  RegistroSql(std::shared_ptr<Connection> destino, std::shared_ptr<FileWriter> fichero)
      : ConnectionWrapper(std::move(destino)), fichero_(std::move(fichero)) {}

  std::unique_ptr<Recordset> Open(std::string_view sql) override {
    Anotar(sql);
    return ConnectionWrapper::Open(sql);
  }
  std::int64_t Execute(std::string_view sql) override {
    Anotar(sql);
    return ConnectionWrapper::Execute(sql);
  }
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override {
    Anotar(sql);
    Anotar("-- " + std::string(field) + ": " + std::to_string(bytes.size()) + " bytes");
    ConnectionWrapper::UpdateBlob(sql, field, bytes);
  }
  void BeginTrans() override {
    Anotar("-- BEGIN TRANSACTION");
    ConnectionWrapper::BeginTrans();
  }
  void CommitTrans() override {
    Anotar("-- COMMIT");
    ConnectionWrapper::CommitTrans();
  }
  void RollbackTrans() override {
    Anotar("-- ROLLBACK");
    ConnectionWrapper::RollbackTrans();
  }

 private:
  void Anotar(std::string_view sql) {
    std::string entrada(sql);
    entrada += '\0';
    fichero_->Write(entrada);
  }

  std::shared_ptr<FileWriter> fichero_;
};

}  // namespace kvraedi::cli
