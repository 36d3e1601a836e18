#include "platform/odbc/diagnostics.h"

#include <algorithm>
#include <array>

#include "platform/odbc/wide.h"

namespace kvraedi::odbc {
namespace {

constexpr SQLINTEGER kLockWaitOver = 1222;
constexpr SQLINTEGER kDeadlockVictim = 1205;
constexpr std::size_t kStateSize = 5;

std::string TextOf(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLSMALLINT length) {
  std::vector<SQLWCHAR> text(static_cast<std::size_t>(length) + 1);
  std::array<SQLWCHAR, kStateSize + 1> state{};
  SQLINTEGER native = 0;
  SQLGetDiagRecW(type, handle, number, state.data(), &native, text.data(),
                 static_cast<SQLSMALLINT>(text.size()), &length);
  const auto written = std::min<std::size_t>(static_cast<std::size_t>(length), text.size() - 1);
  return ToUtf8(std::span(text).first(written));
}

Trouble TroubleOf(const Diagnostic& record) {
  if (record.state.starts_with("08")) return Trouble::kLost;
  if (record.native == kLockWaitOver) return Trouble::kLockWait;
  if (record.native == kDeadlockVictim || record.state == "40001") return Trouble::kDeadlock;
  // Servers with numbers of their own tell it in the words of the original or in theirs.
  for (const char* words : {"ock request time out", "lock timeout", "database is locked"}) {
    if (record.text.find(words) != std::string::npos) return Trouble::kLockWait;
  }
  if (record.text.find("deadlock") != std::string::npos) return Trouble::kDeadlock;
  return Trouble::kNone;
}

}  // namespace

std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT type, SQLHANDLE handle) {
  std::vector<Diagnostic> records;
  std::array<SQLWCHAR, kStateSize + 1> state{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  while (SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, static_cast<SQLSMALLINT>(records.size() + 1),
                                      state.data(), &native, nullptr, 0, &length))) {
    const auto number = static_cast<SQLSMALLINT>(records.size() + 1);
    records.push_back(
        {ToUtf8(std::span(state).first(kStateSize)), native, TextOf(type, handle, number, length)});
  }
  return records;
}

std::string Written(const std::vector<Diagnostic>& records) {
  std::string all;
  for (const Diagnostic& record : records) {
    if (!all.empty()) all += '\n';
    all += record.text + " (" + record.state + ", " + std::to_string(record.native) + ")";
  }
  return all;
}

Trouble TroubleOf(const std::vector<Diagnostic>& records) {
  for (const Diagnostic& record : records) {
    const Trouble trouble = TroubleOf(record);
    if (trouble != Trouble::kNone) return trouble;
  }
  return Trouble::kNone;
}

}  // namespace kvraedi::odbc
