#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/database.h"
#include "platform/sqlite/translation.h"

namespace kvraedi::sqlite {

/// A statement that is ready to run with the literals of any statement of its shape.
struct Prepared {
  std::string key;  // its shape
  std::vector<Slot> slots;
  std::vector<StatementPtr> guards;  // each gives a text that must be a number
  StatementPtr statement;
  bool in_use = false;
};

/// The use of a prepared statement; at its end the statement is reset, and free again.
class Lease {
 public:
  explicit Lease(std::shared_ptr<Prepared> prepared);
  ~Lease() { Release(); }
  Lease(Lease&& other) noexcept = default;
  Lease& operator=(Lease&&) = delete;

  sqlite3_stmt* Statement() const { return prepared_->statement.get(); }
  const std::vector<Slot>& Slots() const { return prepared_->slots; }
  const std::vector<StatementPtr>& Guards() const { return prepared_->guards; }
  bool Released() const { return prepared_ == nullptr; }
  void Release();

 private:
  std::shared_ptr<Prepared> prepared_;
};

/// Prepared statements by shape; past its bound, the ones that were not used for longest go. What
/// is leased lives on with its lease.
class StatementCache {
 public:
  explicit StatementCache(std::size_t bound) : bound_(bound) {}

  /// A statement of that shape that is not in use, or null.
  std::shared_ptr<Prepared> Find(std::string_view key);
  /// Replaces the statement of the same shape.
  void Add(std::shared_ptr<Prepared> prepared);
  void Clear();

 private:
  using Order = std::list<std::shared_ptr<Prepared>>;

  void Remove(Order::iterator entry);

  std::size_t bound_;
  Order order_;  // last used first
  std::unordered_map<std::string_view, Order::iterator> by_key_;
};

}  // namespace kvraedi::sqlite
