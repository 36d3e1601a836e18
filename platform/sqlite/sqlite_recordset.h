#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/conexion.h"
#include "platform/sqlite/database.h"
#include "platform/sqlite/statement_cache.h"

namespace kvraedi::sqlite {

/// The rows of a running statement.
class SqliteRecordset : public Recordset {
 public:
  /// The statement has its parameters; steps to the first row.
  SqliteRecordset(std::shared_ptr<Database> database, Lease lease);

  bool Eof() const override { return eof_; }
  void MoveNext() override;
  void Close() override;
  int Field(std::string_view name) const override;
  bool IsNull(int field) const override;

 protected:
  std::int64_t ReadInteger(int field) const override;
  double ReadDouble(int field) const override;
  Currency ReadCurrency(int field) const override;
  FechaHora ReadDate(int field) const override;
  bool ReadBool(int field) const override;
  std::string_view ReadText(int field) const override;
  Bytes ReadBytes(int field) const override;

 private:
  int TypeOf(int field) const;
  std::string_view Stored(int field) const;
  std::int64_t IntegerAt(int field) const;
  double RealAt(int field) const;

  std::shared_ptr<Database> database_;
  Lease lease_;
  bool eof_ = true;
  mutable std::vector<std::string> number_texts_;  // by field, what ReadText gave for the row
};

}  // namespace kvraedi::sqlite
