#pragma once

#include <utility>

#include "api/ApiPmId.h"
#include "rw/RWPagedArray.h"

// Ids without an order: the place of each is its number. Made for sets of many ids; for a few a list does.
class ApiPmIdSet {
 public:
  bool contains(const ApiPmId& id) const {
    if (id.isNull()) return hasNull_;
    const ApiPmId* place = places_.find(id.number());
    return place && !place->isNull();
  }
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
