#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

// A character of the wide calls is a unit of UTF-16, with every driver manager that this is for.
static_assert(sizeof(SQLWCHAR) == 2);

namespace kvraedi::odbc {

/// A number where the interface wants an address.
inline SQLPOINTER AsPointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr): as it wants it
}

/// Bytes that the driver only reads, though the interface does not say so.
inline SQLPOINTER AsPointer(const void* bytes) {
  return const_cast<void*>(bytes);  // NOLINT(cppcoreguidelines-pro-type-const-cast): see above
}

}  // namespace kvraedi::odbc
