#include "platform/odbc/statement.h"

#include "platform/odbc/wide.h"

namespace kvraedi::odbc {

Statement::Statement(Session& session) : session_(session) {
  session_.Check(handle_.Allocate(session.Handle()), SQL_HANDLE_DBC, session.Handle());
  // The text goes to the server as it is: braces in it are no escapes of the driver's. A driver
  // without such escapes need not know the attribute.
  SQLSetStmtAttrW(
      handle_.Get(), SQL_ATTR_NOSCAN,
      reinterpret_cast<SQLPOINTER>(SQLULEN{SQL_NOSCAN_ON}),  // NOLINT(performance-no-int-to-ptr)
      SQL_IS_UINTEGER);
}

SQLRETURN Statement::Start(std::string_view sql) {
  WideText text(sql);
  return SQLExecDirectW(handle_.Get(), text.Data(), text.Size<SQLINTEGER>());
}

int Statement::Columns() {
  SQLSMALLINT count = 0;
  Check(SQLNumResultCols(handle_.Get(), &count));
  return count;
}

bool Statement::NextResult() {
  const SQLRETURN code = SQLMoreResults(handle_.Get());
  Check(code);
  return code != SQL_NO_DATA;
}

std::int64_t Statement::Drain() {
  std::int64_t matched = 0;
  do {
    if (Columns() > 0) continue;
    SQLLEN count = 0;
    Check(SQLRowCount(handle_.Get(), &count));
    if (count >= 0) matched = count;
  } while (NextResult());
  return matched;
}

}  // namespace kvraedi::odbc
