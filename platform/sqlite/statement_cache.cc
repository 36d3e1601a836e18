#include "platform/sqlite/statement_cache.h"

#include <sqlite3.h>

#include <utility>

namespace kvraedi::sqlite {

Lease::Lease(std::shared_ptr<Prepared> prepared) : prepared_(std::move(prepared)) {
  prepared_->in_use = true;
}

void Lease::Release() {
  if (Released()) return;
  sqlite3_reset(Statement());
  prepared_->in_use = false;
  prepared_.reset();
}

std::shared_ptr<Prepared> StatementCache::Find(std::string_view key) {
  const auto found = by_key_.find(key);
  if (found == by_key_.end() || (*found->second)->in_use) return nullptr;
  order_.splice(order_.begin(), order_, found->second);
  return *found->second;
}

void StatementCache::Add(std::shared_ptr<Prepared> prepared) {
  if (bound_ == 0) return;
  const auto same = by_key_.find(prepared->key);
  if (same != by_key_.end()) Remove(same->second);
  if (order_.size() == bound_) Remove(std::prev(order_.end()));
  order_.push_front(std::move(prepared));
  by_key_.emplace(order_.front()->key, order_.begin());
}

void StatementCache::Clear() {
  by_key_.clear();
  order_.clear();
}

void StatementCache::Remove(Order::iterator entry) {
  by_key_.erase((*entry)->key);
  order_.erase(entry);
}

}  // namespace kvraedi::sqlite
