#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::sqlite {

inline std::unique_ptr<SqliteConnection> OpenInMemory(std::size_t cached_statements = 128) {
  SqliteOptions options;
  options.create = true;
  options.cached_statements = cached_statements;
  options.clock = [] { return FechaHora{2024, 6, 5, 7, 8, 9}; };
  return std::make_unique<SqliteConnection>(":memory:", options);
}

class SqliteTest : public testing::Test {
 protected:
  /// The rows of a query, fields joined by "|", rows by blanks.
  std::string All(const std::string& sql) { return All(*db_, sql); }

  static std::string All(SqliteConnection& db, const std::string& sql) {
    std::string all;
    for (auto rows = db.Open(sql); !rows->Eof(); rows->MoveNext()) {
      if (!all.empty()) all += ' ';
      all += rows->IsNull(0) ? "NULL" : rows->Get<std::string>(0);
    }
    return all;
  }

  /// The first column of what SQLite answers to its own words.
  std::string Raw(const std::string& sql, int field = 0) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db_->Handle(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db_->Handle()) << "\n"
        << sql;
    std::string all;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, field));
      all += (all.empty() ? "" : "\n") + std::string(text == nullptr ? "NULL" : text);
    }
    sqlite3_finalize(statement);
    return all;
  }

  /// The text of the statements that the connection keeps, last prepared first.
  std::vector<std::string> Kept() {
    std::vector<std::string> kept;
    for (auto* at = sqlite3_next_stmt(db_->Handle(), nullptr); at != nullptr;
         at = sqlite3_next_stmt(db_->Handle(), at)) {
      kept.emplace_back(sqlite3_sql(at));
    }
    return kept;
  }

  /// How SQLite goes about a T-SQL query.
  std::string PlanOf(const std::string& sql) {
    const auto rows = db_->Open(sql);
    return Raw("EXPLAIN QUERY PLAN " + Kept().front(), 3);
  }

  static std::string DescriptionOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kErrorDatabase);
      EXPECT_EQ(error.Source(), "SQLite");
      return error.Description();
    }
    return "";
  }

  std::unique_ptr<SqliteConnection> db_ = OpenInMemory();
};

/// A database file that goes with the test.
class DatabaseFile {
 public:
  DatabaseFile() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    path_ = std::filesystem::temp_directory_path() /
            ("kvraedi-" + std::string(test->name()) + "-" +
             std::to_string(reinterpret_cast<std::uintptr_t>(this)) + ".db");
    Remove();
  }
  ~DatabaseFile() { Remove(); }

  std::string Path() const { return path_.string(); }
  std::unique_ptr<SqliteConnection> Open(bool create = false,
                                         Durability durability = Durability::kFull) const {
    SqliteOptions options;
    options.create = create;
    options.durability = durability;
    return std::make_unique<SqliteConnection>(Path(), options);
  }

 private:
  void Remove() const {
    for (const char* ending : {"", "-wal", "-shm", "-journal"}) {
      std::filesystem::remove(Path() + ending);
    }
  }

  std::filesystem::path path_;
};

}  // namespace kvraedi::sqlite
