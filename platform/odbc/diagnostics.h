#pragma once

#include <string>
#include <vector>

#include "platform/odbc/odbc_api.h"

namespace kvraedi::odbc {

/// One record that the driver left on a handle.
struct Diagnostic {
  std::string state;
  SQLINTEGER native = 0;
  std::string text;
};

std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT type, SQLHANDLE handle);

/// All of them, a line each: "text (state, native)".
std::string Written(const std::vector<Diagnostic>& records);

/// What the records say of the connection.
enum class Trouble { kNone, kLost, kLockWait, kDeadlock };
Trouble TroubleOf(const std::vector<Diagnostic>& records);

}  // namespace kvraedi::odbc
