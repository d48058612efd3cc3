#pragma once

#include <vector>

#include "rw/RWClassicTValHashDictionary.h"

// A hash set with the observable order of RWClassicTValHashDictionary.
template <class T, class OrderHash = RWOrderHash<T>>
class RWClassicTValHashSet {
 public:
  explicit RWClassicTValHashSet(RWGrowth growth = RWGrowth::never(), std::size_t buckets = 64)
      : members_(growth, buckets) {}

  std::size_t entries() const noexcept { return members_.entries(); }
  bool isEmpty() const noexcept { return members_.isEmpty(); }
  bool contains(const T& value) const { return members_.find(value) != nullptr; }
  // False when the value is a member already.
  bool insert(const T& value) {
    const std::size_t before = entries();
    members_.insert(value, {});
    return entries() != before;
  }
  bool remove(const T& value) { return members_.remove(value); }
  void clear() { members_.clear(); }
  std::vector<T> listing() const {
    std::vector<T> listed;
    listed.reserve(entries());
    for (const auto* entry : members_.listing()) listed.push_back(entry->key);
    return listed;
  }

 private:
  struct Nothing {};
  RWClassicTValHashDictionary<T, Nothing, OrderHash> members_;
};
