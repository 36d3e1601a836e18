#include "host/demo/lotes.h"

#include "kvraedi/error.h"

namespace kvraedi::demo {
namespace {

constexpr std::size_t kLote = 60'000;  // bytes of text, well below what a server takes at once

}  // namespace

void EjecutarScript(Connection& conexion, std::string_view script) {
  constexpr std::string_view kFin = "\nGO\n";
  for (std::size_t fin = script.find(kFin); fin != std::string_view::npos;
       fin = script.find(kFin)) {
    conexion.Execute(script.substr(0, fin));
    script.remove_prefix(fin + kFin.size());
  }
}

std::unique_ptr<Recordset> EnLotes::Open(std::string_view sql) {
  Enviar();
  return conexion_.Open(sql);
}

std::int64_t EnLotes::Execute(std::string_view sql) {
  if (lote_.empty()) lote_ = "SET NOCOUNT ON";
  lote_.append(";\n").append(sql);
  if (lote_.size() >= kLote) Enviar();
  return 0;
}

void EnLotes::UpdateBlob(std::string_view sql, std::string_view field,
                         std::span<const std::byte> bytes) {
  Enviar();
  conexion_.UpdateBlob(sql, field, bytes);
}

void EnLotes::BeginTrans() {
  Enviar();
  conexion_.BeginTrans();
}

void EnLotes::CommitTrans() {
  Enviar();
  conexion_.CommitTrans();
}

void EnLotes::RollbackTrans() {
  lote_.clear();
  conexion_.RollbackTrans();
}

void EnLotes::Enviar() {
  if (lote_.empty()) return;
  conexion_.Execute(lote_ + ";\nSET NOCOUNT OFF");
  lote_.clear();
}

Transaccion::~Transaccion() {
  if (!abierta_) return;
  try {
    conexion_.RollbackTrans();
  } catch (const Error&) {  // the connection is gone, and the transaction with it
    abierta_ = false;
  }
}

void Transaccion::Confirmar() {
  conexion_.CommitTrans();
  abierta_ = false;
}

}  // namespace kvraedi::demo
