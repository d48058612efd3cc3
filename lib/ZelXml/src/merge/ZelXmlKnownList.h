#pragma once

#include <unordered_set>
#include <utility>

#include "rw/RWClassicTValOrderedVector.h"

// A list that callers read in its order, with a set beside it that answers membership in constant time.
template <class T>
class ZelXmlKnownList {
 public:
  const RWClassicTValOrderedVector<T>& list() const { return list_; }
  const std::unordered_set<T>& members() const { return members_; }
  bool contains(const T& value) const { return members_.count(value) != 0; }

  // Appends a value, also a repeated one.
  void append(T value) {
    members_.insert(value);
    list_.append(std::move(value));
  }
  // False, and nothing done, for a value that is there.
  bool appendNew(const T& value) {
    if (!members_.insert(value).second) return false;
    list_.append(value);
    return true;
  }

 private:
  RWClassicTValOrderedVector<T> list_{64};
  std::unordered_set<T> members_;
};
