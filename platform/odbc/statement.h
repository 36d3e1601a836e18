#pragma once

#include <cstdint>
#include <string_view>

#include "platform/odbc/session.h"

namespace kvraedi::odbc {

/// A statement that is executed as it stands: a prepared one would give its temporary tables the
/// life of a procedure. The wire has to be free (Session::Ready).
class Statement {
 public:
  explicit Statement(Session& session);

  SQLHANDLE Get() const { return handle_.Get(); }
  /// Raises what the driver says unless the code is one of success; SQL_NO_DATA is one.
  void Check(SQLRETURN code) {
    if (code != SQL_NO_DATA) session_.Check(code, SQL_HANDLE_STMT, handle_.Get());
  }
  void Run(std::string_view sql) { Check(Start(sql)); }
  /// The same, but gives back what the driver says.
  SQLRETURN Start(std::string_view sql);
  /// Columns of the result at hand; 0 when it has no rows.
  int Columns();
  /// Whether there is another result; an error behind the first one is raised here.
  bool NextResult();
  /// Reads all results to their end and gives back the rows that the last one without columns
  /// matched: triggers count before the statement that fires them.
  std::int64_t Drain();
  void Free() { handle_.Free(); }

 private:
  Session& session_;
  StatementHandle handle_;
};

}  // namespace kvraedi::odbc
