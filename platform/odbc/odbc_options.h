#pragma once

#include <chrono>

namespace kvraedi {

struct OdbcOptions {
  std::chrono::seconds login_wait{15};  ///< for the server's answer when the connection is opened
  /// For rows that another connection has locked; what then fails says so. Negative: without end.
  std::chrono::milliseconds lock_wait{30'000};
  /// Whether the server takes T-SQL. Otherwise nothing is set or proved at opening, and UpdateBlob
  /// is refused.
  bool transact_sql = true;
};

}  // namespace kvraedi
