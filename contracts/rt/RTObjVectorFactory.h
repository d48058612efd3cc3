#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "rt/RTObjAllocator.h"

// Makes objects by number. A slot once taken is never given to another allocator.
template <class Base>
class RTObjVectorFactory {
 public:
  explicit RTObjVectorFactory(std::size_t slots = 0) : slots_(slots) {}

  // Keeps a copy of `allocator` under `key`. False, and nothing changed, for a negative key, a key that is
  // taken, or null.
  bool addAllocator(int key, const RTBaseObjAllocator<Base>* allocator) {
    if (key < 0 || !allocator) return false;
    const auto slot = static_cast<std::size_t>(key);
    if (slot >= slots_.size()) slots_.resize(slot + 1);
    if (slots_[slot]) return false;
    slots_[slot].reset(allocator->clone());
    return true;
  }
  bool addAllocator(int key, const RTBaseObjAllocator<Base>& allocator) {
    return addAllocator(key, &allocator);
  }

  // A new object that the caller owns; null for a key without allocator.
  Base* create(int key) const {
    const auto slot = static_cast<std::size_t>(key);
    return key >= 0 && slot < slots_.size() && slots_[slot] ? slots_[slot]->allocate() : nullptr;
  }

 private:
  std::vector<std::unique_ptr<RTBaseObjAllocator<Base>>> slots_;
};
