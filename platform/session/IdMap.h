#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "api/ApiPmId.h"
#include "api/ApiPmIds.h"
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

// Ids by the number that a study gives them: open addressing. A slot is free exactly when its id is null.
class NumberMap {
 public:
  const ApiPmId* find(const ApiPmInternalId& number) const noexcept {
    if (count_ == 0) return nullptr;
    const Slot& slot = slots_[position(number)];
    return slot.second.isNull() ? nullptr : &slot.second;
  }

  void put(const ApiPmInternalId& number, const ApiPmId& id) {
    if (count_ * 4 >= slots_.size() * 3) grow();
    Slot& slot = slots_[position(number)];
    if (slot.second.isNull()) ++count_;
    slot = {number, id};
  }

  bool remove(const ApiPmInternalId& number) noexcept {
    if (count_ == 0) return false;
    std::size_t hole = position(number);
    if (slots_[hole].second.isNull()) return false;
    // Moves up what the hole would part from its home slot, so that no marker of a removal is needed.
    for (std::size_t next = hole;;) {
      next = (next + 1) & mask();
      if (slots_[next].second.isNull()) break;
      if (((next - home(slots_[next].first)) & mask()) >= ((next - hole) & mask())) {
        slots_[hole] = std::move(slots_[next]);
        hole = next;
      }
    }
    slots_[hole] = Slot();
    --count_;
    return true;
  }

 private:
  using Slot = std::pair<ApiPmInternalId, ApiPmId>;

  std::size_t mask() const noexcept { return slots_.size() - 1; }
  // Numbers come one after the other: sixteen of them stand side by side.
  std::size_t home(const ApiPmInternalId& key) const noexcept {
    const std::uint64_t number = std::hash<ApiPmInternalId>{}(key);
    return static_cast<std::size_t>(((number >> 4) * 0x9e3779b97f4a7c15ULL >> shift_) + (number & 15)) &
           mask();
  }
  // The slot of the number, or the free one where it would go.
  std::size_t position(const ApiPmInternalId& number) const noexcept {
    std::size_t at = home(number);
    while (!slots_[at].second.isNull() && !(slots_[at].first == number)) at = (at + 1) & mask();
    return at;
  }
  void grow() {
    std::vector<Slot> former(slots_.empty() ? 64 : slots_.size() * 2);
    former.swap(slots_);
    shift_ = 64;
    for (std::size_t size = slots_.size(); size > 1; size /= 2) --shift_;
    for (Slot& slot : former) {
      if (!slot.second.isNull()) slots_[position(slot.first)] = std::move(slot);
    }
  }

  std::vector<Slot> slots_;  // none or a power of two
  std::size_t count_ = 0;
  unsigned shift_ = 0;
};
