#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/conexion.h"
#include "platform/odbc/cursor.h"

namespace kvraedi::odbc {

/// The rows of a query: from the server while nothing else needs the wire, then read ahead.
class OdbcRecordset : public Recordset, private Holder {
 public:
  /// Runs the query and stands on its first row.
  OdbcRecordset(std::shared_ptr<Session> session, std::string_view sql);
  ~OdbcRecordset() override;
  OdbcRecordset(const OdbcRecordset&) = delete;
  OdbcRecordset& operator=(const OdbcRecordset&) = delete;

  bool Eof() const override { return eof_; }
  void MoveNext() override;
  void Close() override;
  int Field(std::string_view name) const override;
  bool IsNull(int field) const override { return At(field).size == Cell::kNull; }

 protected:
  std::int64_t ReadInteger(int field) const override;
  double ReadDouble(int field) const override;
  Currency ReadCurrency(int field) const override;
  FechaHora ReadDate(int field) const override;
  bool ReadBool(int field) const override;
  std::string_view ReadText(int field) const override;
  Bytes ReadBytes(int field) const override;

 private:
  void ReadAhead() override;
  Cell At(int field) const;
  Kind KindOf(int field) const { return columns_[static_cast<std::size_t>(field)].kind; }
  template <class T>
  T Stored(int field) const;
  std::string TextOf(int field) const;
  std::string CharactersOf(const Cell& cell) const;
  Bytes BytesOf(const Cell& cell) const;

  std::shared_ptr<Session> session_;
  std::vector<Column> columns_;
  std::unique_ptr<Rows> rows_;
  const Cursor* cursor_ = nullptr;  // rows_, while they come from the server
  bool eof_ = true;
  mutable std::vector<std::optional<std::string>> texts_;  // of the row, by field, as asked for
};

}  // namespace kvraedi::odbc
