#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "kvraedi/error.h"
#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

using Bytes = std::vector<std::byte>;

/// The rows of one SELECT, read once from first to last. It stands on the first row when it is
/// opened. Texts are UTF-8.
///
/// Lifetime: a recordset may outlive later statements on its connection, but not the connection.
/// Destroying it closes it.
class KVRAEDI_API Recordset {
 public:
  virtual ~Recordset();

  virtual bool Eof() const = 0;
  /// Raises when the database fails; the recordset is then at its end.
  virtual void MoveNext() = 0;
  /// Releases the rows. Closing twice is allowed.
  virtual void Close() = 0;

  /// Place of a field, from 0; names are compared without regard to case, and of two equal names
  /// the first counts. Raises kErrorItemNotFound. Valid for all rows: look it up once per loop.
  virtual int Field(std::string_view name) const = 0;
  virtual bool IsNull(int field) const = 0;
  bool IsNull(std::string_view name) const { return IsNull(Field(name)); }

  /// The value as a T: bool, std::int16_t, std::int32_t, std::int64_t, double, Currency, FechaHora,
  /// std::string, std::string_view (valid until MoveNext or Close) or Bytes. A null raises "Uso no
  /// válido de Null", an integer that does not fit T "Desbordamiento", a text that is not of the
  /// wanted kind "No coinciden los tipos".
  template <class T>
  T Get(int field) const {
    if (IsNull(field)) ThrowInvalidNull();
    return Read<T>(field);
  }
  template <class T>
  T Get(std::string_view name) const {
    return Get<T>(Field(name));
  }
  /// The same, but a null gives T's empty value: 0, false, "", no bytes.
  template <class T>
  T GetOrEmpty(int field) const {
    return IsNull(field) ? T{} : Read<T>(field);
  }
  template <class T>
  T GetOrEmpty(std::string_view name) const {
    return GetOrEmpty<T>(Field(name));
  }

 protected:
  // What an adapter offers; the field is never null when these are called.
  virtual std::int64_t ReadInteger(int field) const = 0;
  virtual double ReadDouble(int field) const = 0;
  virtual Currency ReadCurrency(int field) const = 0;
  virtual FechaHora ReadDate(int field) const = 0;
  virtual bool ReadBool(int field) const = 0;
  virtual std::string_view ReadText(int field) const = 0;
  virtual Bytes ReadBytes(int field) const = 0;

 private:
  friend class RecordsetWrapper;
  template <class T>
  T Read(int field) const;
};

/// Passes every call on: the base of recordsets that log, count or fail on purpose.
class KVRAEDI_API RecordsetWrapper : public Recordset {
 public:
  explicit RecordsetWrapper(std::unique_ptr<Recordset> target) : target_(std::move(target)) {}

  bool Eof() const override { return target_->Eof(); }
  void MoveNext() override { target_->MoveNext(); }
  void Close() override { target_->Close(); }
  int Field(std::string_view name) const override { return target_->Field(name); }
  bool IsNull(int field) const override { return target_->IsNull(field); }

 protected:
  std::int64_t ReadInteger(int field) const override { return target_->ReadInteger(field); }
  double ReadDouble(int field) const override { return target_->ReadDouble(field); }
  Currency ReadCurrency(int field) const override { return target_->ReadCurrency(field); }
  FechaHora ReadDate(int field) const override { return target_->ReadDate(field); }
  bool ReadBool(int field) const override { return target_->ReadBool(field); }
  std::string_view ReadText(int field) const override { return target_->ReadText(field); }
  Bytes ReadBytes(int field) const override { return target_->ReadBytes(field); }

 private:
  std::unique_ptr<Recordset> target_;
};

/// An open database, in the terms of ADO. The host owns its lifetime; the component never opens,
/// closes or configures it. Statements are T-SQL text in UTF-8. Failures raise `Error` with a
/// Spanish text or the server's own; a statement that fails changes nothing. One thread.
///
/// Every adapter promises, and what writes statements may count on it:
/// - A text is read as a date with the day first: "dd/mm/yyyy[ hh:mm[:ss]]". Written is
///   "yyyymmdd[ hh:mm:ss]" wherever the writer is free, which no setting reads otherwise;
///   "yyyy-mm-dd" means another day to a server that reads the day first, and is never written.
///   The empty text is 01/01/1900; what is no date is an error, also where no row is compared.
/// - A value that does not fit its column is refused: a text by its length (blanks at its end do
///   not count), a number by its range, a `smalldatetime` outside 01/01/1900 to 06/06/2079. Numbers
///   are rounded to the column's scale, halves away from zero, a `smalldatetime` to the minute.
/// - Texts compare without regard to case and to blanks at their end; an empty binary value equals
///   ''. A text column that is compared with a bare number must hold nothing but numbers.
/// - Temporary tables (#name) belong to the connection and live no longer than it.
class KVRAEDI_API Connection {
 public:
  virtual ~Connection();

  /// Runs a SELECT. The recordset may stay open while other statements run on the connection.
  virtual std::unique_ptr<Recordset> Open(std::string_view sql) = 0;
  /// Runs a statement without rows; gives back the number of rows matched.
  virtual std::int64_t Execute(std::string_view sql) = 0;
  /// Puts the bytes into the binary `field` of one row: the first that `sql` would show, which is a
  /// SELECT of columns of one table, `field` among them. Of rows that it does not tell apart, that
  /// is the one that the database shows first. Raises when there is no row or no such field.
  virtual void UpdateBlob(std::string_view sql, std::string_view field,
                          std::span<const std::byte> bytes) = 0;

  /// Raises inside a transaction: there is one at a time.
  virtual void BeginTrans() = 0;
  /// Raises when there is no transaction.
  virtual void CommitTrans() = 0;
  /// The same; but where the database ended the transaction by itself, it succeeds.
  virtual void RollbackTrans() = 0;
};

/// Passes every call on: the base of connections that log, count or fail on purpose.
class KVRAEDI_API ConnectionWrapper : public Connection {
 public:
  explicit ConnectionWrapper(std::shared_ptr<Connection> target) : target_(std::move(target)) {}

  std::unique_ptr<Recordset> Open(std::string_view sql) override { return target_->Open(sql); }
  std::int64_t Execute(std::string_view sql) override { return target_->Execute(sql); }
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override {
    target_->UpdateBlob(sql, field, bytes);
  }
  void BeginTrans() override { target_->BeginTrans(); }
  void CommitTrans() override { target_->CommitTrans(); }
  void RollbackTrans() override { target_->RollbackTrans(); }

 protected:
  Connection& Target() const { return *target_; }

 private:
  std::shared_ptr<Connection> target_;
};

template <class T>
T Recordset::Read(int field) const {
  if constexpr (std::is_same_v<T, bool>) {
    return ReadBool(field);
  } else if constexpr (std::is_integral_v<T>) {
    const std::int64_t value = ReadInteger(field);
    if (value != static_cast<T>(value)) ThrowOverflow();
    return static_cast<T>(value);
  } else if constexpr (std::is_same_v<T, double>) {
    return ReadDouble(field);
  } else if constexpr (std::is_same_v<T, Currency>) {
    return ReadCurrency(field);
  } else if constexpr (std::is_same_v<T, FechaHora>) {
    return ReadDate(field);
  } else if constexpr (std::is_same_v<T, Bytes>) {
    return ReadBytes(field);
  } else {
    return T(ReadText(field));
  }
}

}  // namespace kvraedi
