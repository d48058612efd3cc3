#pragma once

#include <cstddef>
#include <utility>

#include "api/ApiPmId.h"
#include "rw/RWPagedArray.h"

// Ids without an order: the place of each is its number. Made for sets of many ids; for a few a list does.
class ApiPmIdSet {
 public:
  std::size_t count(const ApiPmId& id) const {
    if (id.isNull()) return hasNull_ ? 1 : 0;
    const ApiPmId* place = places_.find(id.number());
    return place && !place->isNull() ? 1 : 0;
  }
  bool contains(const ApiPmId& id) const { return count(id) != 0; }
  // False for one that is there.
  bool insert(const ApiPmId& id) {
    if (id.isNull()) return !std::exchange(hasNull_, true);
    ApiPmId& place = places_.at(id.number());
    if (!place.isNull()) return false;
    place = id;
    return true;
  }

 private:
  RWPagedArray<ApiPmId> places_;  // each keeps its id, and so the number, alive
  bool hasNull_ = false;
};
