#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "rt/RTPool.h"

// A hash of a number that is its own, for keys that nobody outside can choose: addresses, numbers of things.
// Different keys have different hashes.
constexpr std::uint64_t rwSpread(std::uint64_t key) noexcept {
  key = (key ^ (key >> 32)) * 0x9e3779b97f4a7c15ULL;
  return key ^ (key >> 32);
}
inline std::uint64_t rwSpread(const void* address) noexcept {
  return rwSpread(std::uint64_t{reinterpret_cast<std::uintptr_t>(address)});
}

// The hash table behind all others: values in one row of slots, each with the hash under which it is found.
// What is the key of a value only its user knows, and tells values of one hash apart when asked to; several
// values of one hash may stand in it. The hash of a text that comes from outside is an RWTextHash.
//
// 1. A slot is free exactly when its value is T(), so T() is no value.
// 2. A value stands at the place that the lower bits of its hash name, or behind it without a free slot in
//    between. What is removed leaves no mark: those behind it move up.
// 3. At most three quarters of the slots are taken. Slots are found again after any change, never kept.
//
// Without dynamic initialisation: a constinit table works before all else.
template <class T>
class RWFlatTable {
 public:
  struct Slot {
    std::uint64_t hash = 0;
    T value{};
  };

  constexpr RWFlatTable() noexcept = default;
  RWFlatTable(RWFlatTable&& other) noexcept
      : slots_(std::exchange(other.slots_, nullptr)),
        mask_(std::exchange(other.mask_, 0)),
        size_(std::exchange(other.size_, 0)) {}
  RWFlatTable& operator=(RWFlatTable&& other) noexcept {
    std::swap(slots_, other.slots_);
    std::swap(mask_, other.mask_);
    std::swap(size_, other.size_);
    return *this;
  }
  ~RWFlatTable() { clear(); }

  std::size_t size() const noexcept { return size_; }

  // The first slot of this hash for whose value `is` answers true, null without one.
  template <class Is>
  Slot* find(std::uint64_t hash, Is is) const {
    if (size_ == 0) return nullptr;
    for (std::size_t at = hash & mask_; isTaken(slots_[at]); at = (at + 1) & mask_) {
      if (slots_[at].hash == hash && is(std::as_const(slots_[at].value))) return &slots_[at];
    }
    return nullptr;
  }
  // For keys that have a hash for themselves.
  Slot* find(std::uint64_t hash) const {
    return find(hash, [](const T&) { return true; });
  }

  // Takes a value in, beside those of its hash.
  Slot& add(std::uint64_t hash, T value) {
    if ((size_ + 1) * 4 > capacity() * 3) grow();
    Slot& slot = slots_[freeAt(hash)];
    slot.hash = hash;
    slot.value = std::move(value);
    ++size_;
    return slot;
  }

  // Takes out a value that was found.
  void remove(Slot* found) noexcept {
    auto hole = static_cast<std::size_t>(found - slots_);
    for (std::size_t next = hole;;) {
      next = (next + 1) & mask_;
      if (!isTaken(slots_[next])) break;
      // It may move up unless that would bring it before the place that its hash names.
      if (((next - slots_[next].hash) & mask_) < ((next - hole) & mask_)) continue;
      slots_[hole] = std::move(slots_[next]);
      hole = next;
    }
    slots_[hole] = Slot();
    --size_;
  }

  template <class Visit>
  void each(Visit visit) const {
    for (std::size_t at = 0; at < capacity(); ++at) {
      if (isTaken(slots_[at])) visit(slots_[at].value);
    }
  }

  void clear() noexcept {
    release(slots_, capacity());
    slots_ = nullptr;
    mask_ = size_ = 0;
  }

 private:
  static constexpr std::size_t first = 16;

  static bool isTaken(const Slot& slot) noexcept { return !(slot.value == T()); }
  std::size_t capacity() const noexcept { return slots_ != nullptr ? mask_ + 1 : 0; }
  std::size_t freeAt(std::uint64_t hash) const noexcept {
    std::size_t at = hash & mask_;
    while (isTaken(slots_[at])) at = (at + 1) & mask_;
    return at;
  }
  static void release(Slot* slots, std::size_t capacity) noexcept {
    if (slots == nullptr) return;
    for (std::size_t at = 0; at < capacity; ++at) slots[at].~Slot();
    RTPool::free(slots, capacity * sizeof(Slot));
  }
  void grow() {
    const std::size_t former = capacity();
    const std::size_t wanted = former != 0 ? former * 2 : first;
    auto* const fresh = static_cast<Slot*>(RTPool::allocate(wanted * sizeof(Slot)));
    for (std::size_t at = 0; at < wanted; ++at) new (fresh + at) Slot();
    Slot* const old = std::exchange(slots_, fresh);
    mask_ = wanted - 1;
    for (std::size_t at = 0; at < former; ++at) {
      if (isTaken(old[at])) slots_[freeAt(old[at].hash)] = std::move(old[at]);
    }
    release(old, former);
  }

  Slot* slots_ = nullptr;  // none or a power of two
  std::size_t mask_ = 0;
  std::size_t size_ = 0;
};
