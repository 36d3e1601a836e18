#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "kvraedi/conexion.h"

namespace kvraedi::conformance {

/// An adapter under test, a row for each database. What a database takes beyond the promises of
/// conexion.h is tested beside its adapter.
struct Adapter {
  std::string name;
  /// Gives a connection to an empty database, with GETDATE() at 05/06/2024 07:08:09.
  std::function<std::unique_ptr<Connection>()> open;
  /// The tests that it cannot pass, each with its reason: they are skipped and say so.
  std::map<std::string, std::string> cannot = {};
};

/// A section of promesas.sql, or of a file of its form.
struct Promise {
  std::string name;
  std::vector<std::string> lines;
};

/// `path` is below the folder of the tests.
std::vector<Promise> Promises(const std::string& path = "platform/conexion/promesas.sql");

inline void PrintTo(const Promise& promise, std::ostream* out) { *out << promise.name; }
inline void PrintTo(const Adapter& adapter, std::ostream* out) { *out << adapter.name; }

/// What the databases that the component runs on must do with its statements.
class DatabasePromises : public testing::TestWithParam<std::tuple<Adapter, Promise>> {};

inline std::string NameOfPromise(const testing::TestParamInfo<DatabasePromises::ParamType>& info) {
  return std::get<Promise>(info.param).name;
}

/// What every Connection must do, whatever its database. A test program compiles
/// connection_conformance.cc and names its adapters with INSTANTIATE_TEST_SUITE_P.
class ConnectionConformance : public testing::TestWithParam<Adapter> {
 protected:
  void SetUp() override;

  void Insert(const std::string& column, const std::string& value);

  /// The first column of all rows, joined by "|"; nulls are "NULL".
  std::string All(const std::string& sql);

  std::int64_t Count(const std::string& condition);

  std::unique_ptr<Connection> db_;
};

}  // namespace kvraedi::conformance
