#include "platform/odbc/session.h"

#include <array>
#include <utility>

#include "kvraedi/error.h"
#include "platform/odbc/statement.h"
#include "platform/odbc/wide.h"

namespace kvraedi::odbc {
namespace {

constexpr const char* kLost = "Se ha perdido la conexión con la base de datos.";

}  // namespace

void Throw(const std::string& description) { throw Error(kErrorDatabase, "ODBC", description); }

Session::Session(std::string_view connection_string, const OdbcOptions& options)
    : options_(options), secrets_(connection_string) {
  if (!SQL_SUCCEEDED(environment_.Allocate(nullptr))) {
    Throw("No se puede preparar ODBC en esta máquina");
  }
  Check(
      SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQLULEN{SQL_OV_ODBC3}), 0),
      SQL_HANDLE_ENV, environment_.Get());
  Check(connection_.Allocate(environment_.Get()), SQL_HANDLE_ENV, environment_.Get());
  Open(connection_string);
}

Session::~Session() {
  if (connected_) SQLDisconnect(connection_.Get());
}

void Session::Open(std::string_view connection_string) {
  // Not every driver has it; those wait as long as they please.
  SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                     AsPointer(static_cast<SQLULEN>(options_.login_wait.count())), SQL_IS_UINTEGER);
  WideText text(connection_string);
  const SQLRETURN code =
      SQLDriverConnectW(connection_.Get(), nullptr, text.Data(), text.Size<SQLSMALLINT>(), nullptr,
                        0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) {
    const auto records = ReadDiagnostics(SQL_HANDLE_DBC, connection_.Get());
    Throw(
        secrets_.Hide("No se puede abrir la conexión con la base de datos.\n" + Written(records)));
  }
  connected_ = true;
}

void Session::Ready() {
  ReadyToEnd();
  if (!std::exchange(in_doubt_, false) || ServerHasTransaction()) return;
  in_doubt_ = true;
  Throw("El servidor ha deshecho por sí mismo la transacción; nada de ella se ha guardado.");
}

void Session::ReadyToEnd() {
  if (Holder* const holder = std::exchange(holder_, nullptr)) holder->ReadAhead();
  if (!lost_.empty()) Throw(lost_);
}

void Session::Release(const Holder* holder) {
  if (holder_ == holder) holder_ = nullptr;
}

void Session::Fail(SQLSMALLINT type, SQLHANDLE handle) {
  const auto records = ReadDiagnostics(type, handle);
  const Trouble trouble = IsDead() ? Trouble::kLost : TroubleOf(records);
  const std::string text = secrets_.Hide(Explained(records, trouble));
  if (trouble == Trouble::kLost) lost_ = text;
  in_doubt_ = in_transaction_ && options_.transact_sql;
  Throw(text);
}

void Session::InTransaction(bool open) {
  in_transaction_ = open;
  in_doubt_ = false;
}

bool Session::IsDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN code =
      SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof(dead), nullptr);
  return connected_ && SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

std::string Session::Explained(const std::vector<Diagnostic>& records, Trouble trouble) const {
  std::string text = Written(records);
  if (text.empty()) text = "El controlador no dice por qué ha fallado.";
  switch (trouble) {
    case Trouble::kNone:
      return text;
    case Trouble::kLost:
      return kLost + ("\n" + text);
    case Trouble::kLockWait:
      return "Otro usuario tiene bloqueados los datos y ha terminado la espera (" +
             std::to_string(options_.lock_wait.count()) + " ms).\n" + text;
    case Trouble::kDeadlock:
      return "El servidor ha deshecho la operación porque chocaba con la de otro usuario.\n" + text;
  }
  return text;
}

bool Session::ServerHasTransaction() {
  Statement statement(*this);
  statement.Run("SELECT @@TRANCOUNT");
  SQLINTEGER count = 0;
  SQLLEN size = 0;
  statement.Check(SQLFetch(statement.Get()));
  statement.Check(SQLGetData(statement.Get(), 1, SQL_C_SLONG, &count, sizeof(count), &size));
  return count > 0;
}

std::string Session::Database() {
  std::array<SQLWCHAR, 512> name{};
  SQLINTEGER bytes = 0;
  Check(SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CURRENT_CATALOG, name.data(),
                           sizeof(name) - sizeof(SQLWCHAR), &bytes),
        SQL_HANDLE_DBC, connection_.Get());
  std::size_t length = 0;
  while (length < name.size() && name[length] != 0) ++length;
  return ToUtf8(std::span(name).first(length));
}

}  // namespace kvraedi::odbc
