#pragma once

#include <type_traits>
#include <unordered_set>
#include <utility>

#include "api/ApiPmIdSet.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWTextHash.h"

// A list that callers read in its order, with a set beside it that answers membership in constant time.
template <class T>
class ZelXmlKnownList {
 public:
  using Members =
      std::conditional_t<std::is_same_v<T, ApiPmId>, ApiPmIdSet, std::unordered_set<T, RWTextHash>>;

  const RWClassicTValOrderedVector<T>& list() const { return list_; }
  const Members& members() const { return members_; }
  bool contains(const T& value) const { return members_.contains(value); }

  // Appends a value, also a repeated one.
  void append(T value) {
    members_.insert(value);
    list_.append(std::move(value));
  }
  // False, and nothing done, for a value that is there.
  bool appendNew(const T& value) {
    if (contains(value)) return false;
    members_.insert(value);
    list_.append(value);
    return true;
  }

 private:
  RWClassicTValOrderedVector<T> list_{64};
  Members members_;
};
