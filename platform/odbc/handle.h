#pragma once

#include <utility>

#include "platform/odbc/odbc_api.h"

namespace kvraedi::odbc {

/// Owns a handle of the driver manager.
template <SQLSMALLINT type>
class Handle {
 public:
  static constexpr SQLSMALLINT kType = type;

  Handle() = default;
  ~Handle() { Free(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLRETURN Allocate(SQLHANDLE parent) { return SQLAllocHandle(type, parent, &handle_); }
  void Free() {
    if (handle_ != nullptr) SQLFreeHandle(type, std::exchange(handle_, nullptr));
  }
  SQLHANDLE Get() const { return handle_; }

 private:
  SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace kvraedi::odbc
