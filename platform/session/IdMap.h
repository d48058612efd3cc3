#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

#include "api/ApiPmId.h"

// An open-addressing map in which key or value is an ApiPmId. A slot is free exactly when its id is null, so
// null ids cannot be stored. Pointers to values are good until the next change of the map.
template <class Key, class Value>
class IdMap {
  static_assert(std::is_same_v<Key, ApiPmId> || std::is_same_v<Value, ApiPmId>);

 public:
  std::size_t size() const noexcept { return count_; }

  const Value* find(const Key& key) const noexcept {
    if (count_ == 0) return nullptr;
    const Slot& slot = slots_[position(key)];
    return isFree(slot) ? nullptr : &slot.second;
  }

  // Puts `value` under `key`, in place of a former one.
  void put(const Key& key, Value value) {
    if (count_ * 4 >= slots_.size() * 3) grow();
    Slot& slot = slots_[position(key)];
    if (isFree(slot)) ++count_;
    slot.first = key;
    slot.second = std::move(value);
  }

  // Puts `value` under `key` unless there is one.
  void putFirst(const Key& key, Value value) {
    if (count_ * 4 >= slots_.size() * 3) grow();
    Slot& slot = slots_[position(key)];
    if (!isFree(slot)) return;
    ++count_;
    slot.first = key;
    slot.second = std::move(value);
  }

  bool remove(const Key& key) noexcept {
    if (count_ == 0) return false;
    std::size_t hole = position(key);
    if (isFree(slots_[hole])) return false;
    // Moves up what the hole would part from its home slot, so that no marker of a removal is needed.
    for (std::size_t next = hole;;) {
      next = (next + 1) & mask();
      if (isFree(slots_[next])) break;
      if (((next - home(slots_[next].first)) & mask()) >= ((next - hole) & mask())) {
        slots_[hole] = std::move(slots_[next]);
        hole = next;
      }
    }
    slots_[hole] = Slot();
    --count_;
    return true;
  }

  void clear() noexcept {
    slots_.clear();
    count_ = 0;
  }
  void swap(IdMap& other) noexcept {
    slots_.swap(other.slots_);
    std::swap(count_, other.count_);
    std::swap(shift_, other.shift_);
  }

 private:
  using Slot = std::pair<Key, Value>;

  static bool isFree(const Slot& slot) noexcept {
    if constexpr (std::is_same_v<Key, ApiPmId>) {
      return slot.first.isNull();
    } else {
      return slot.second.isNull();
    }
  }
  std::size_t mask() const noexcept { return slots_.size() - 1; }
  // Ids by address: moving them on growth then reads no text. Each map has an order of its own: when one
  // goes, its ids are freed in its order, and those made next for another come to stand at these addresses.
  // In the same order they would all go to one end of a growing table, and heap up there.
  std::size_t home(const Key& key) const noexcept {
    if constexpr (std::is_same_v<Key, ApiPmId>) {
      return scattered(reinterpret_cast<std::uintptr_t>(key.identity()));
    } else {
      // Numbers come one after the other: sixteen of them stand side by side.
      const std::uint64_t number = std::hash<Key>{}(key);
      return (scattered(number >> 4) + (number & 15)) & mask();
    }
  }
  std::size_t scattered(std::uint64_t number) const noexcept {
    number = (number ^ order_) * 0x9e3779b97f4a7c15ULL;
    number = (number ^ number >> 32) * 0xff51afd7ed558ccdULL;
    return static_cast<std::size_t>(number >> shift_);
  }
  // The slot of the key, or the free one where it would go.
  std::size_t position(const Key& key) const noexcept {
    std::size_t at = home(key);
    while (!isFree(slots_[at]) && !(slots_[at].first == key)) at = (at + 1) & mask();
    return at;
  }
  void grow() {
    std::vector<Slot> former(slots_.empty() ? 64 : slots_.size() * 2);
    former.swap(slots_);
    shift_ = 64;
    for (std::size_t size = slots_.size(); size > 1; size /= 2) --shift_;
    for (Slot& slot : former) {
      if (!isFree(slot)) slots_[position(slot.first)] = std::move(slot);
    }
  }

  std::vector<Slot> slots_;  // none or a power of two
  std::size_t count_ = 0;
  unsigned shift_ = 0;
  static inline std::uint64_t orders_ = 0;
  std::uint64_t order_ = orders_ += 0xc4ceb9fe1a85ec53ULL;
};
