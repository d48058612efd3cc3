#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "api/ApiPmId.h"
#include "api/ApiPmIds.h"
#include "rw/RWFlatTable.h"
#include "rw/RWPagedArray.h"

// Values by id: at the place of the id's number, which the id kept beside the value goes on to own. Null ids
// cannot be stored. Pointers to values are good until theirs is removed.
template <class Value>
class IdMap {
 public:
  const Value* find(const ApiPmId& id) const noexcept {
    const Place* place = places_.find(id.number());
    return place && !place->first.isNull() ? &place->second : nullptr;
  }

  // Puts `value` under `id`, in place of a former one.
  void put(const ApiPmId& id, Value value) {
    Place& place = places_.at(id.number());
    if (place.first.isNull()) place.first = id;
    place.second = std::move(value);
  }

  // Puts `value` under `id` unless there is one.
  void putFirst(const ApiPmId& id, Value value) {
    Place& place = places_.at(id.number());
    if (place.first.isNull()) place = {id, std::move(value)};
  }

  bool remove(const ApiPmId& id) noexcept {
    Place* place = places_.find(id.number());
    if (!place || place->first.isNull()) return false;
    *place = Place();
    return true;
  }

  void clear() noexcept { places_.clear(); }

 private:
  using Place = std::pair<ApiPmId, Value>;
  RWPagedArray<Place> places_;
};

// Ids by the number that a study gives them.
class NumberMap {
 public:
  const ApiPmId* find(const ApiPmInternalId& number) const noexcept {
    const Slot* slot = ids_.find(hashOf(number));
    return slot ? &slot->value : nullptr;
  }

  void put(const ApiPmInternalId& number, const ApiPmId& id) {
    if (Slot* slot = ids_.find(hashOf(number))) {
      slot->value = id;
    } else {
      ids_.add(hashOf(number), id);
    }
  }

  bool remove(const ApiPmInternalId& number) noexcept {
    Slot* slot = ids_.find(hashOf(number));
    if (slot) ids_.remove(slot);
    return slot != nullptr;
  }

 private:
  using Slot = RWFlatTable<ApiPmId>::Slot;

  // Numbers come one after the other: sixteen of them stand side by side. The number itself is in the upper
  // half, so that different ones have different hashes.
  static std::uint64_t hashOf(const ApiPmInternalId& key) noexcept {
    const auto number = static_cast<std::uint32_t>(key.value);
    const std::uint64_t place = rwSpread(number >> 4) << 4 | (number & 15);
    return std::uint64_t{number} << 32 | (place & 0xffffffff);
  }

  RWFlatTable<ApiPmId> ids_;
};
