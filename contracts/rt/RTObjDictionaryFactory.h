#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "rt/RTObjAllocator.h"
#include "rw/RWTextHash.h"

// Makes objects by name. A name once taken is never given to another allocator.
template <class Base>
class RTObjDictionaryFactory {
 public:
  // Keeps a copy of `allocator` under `key`. False, and nothing changed, for a key that is taken, or null.
  bool addAllocator(std::string_view key, const RTBaseObjAllocator<Base>* allocator) {
    if (!allocator || allocators_.contains(std::string(key))) return false;
    allocators_.emplace(key, allocator->clone());
    return true;
  }

  // A new object that the caller owns; null for a key without allocator.
  Base* create(std::string_view key) const {
    const auto found = allocators_.find(std::string(key));
    return found == allocators_.end() ? nullptr : found->second->allocate();
  }

 private:
  std::unordered_map<std::string, std::unique_ptr<RTBaseObjAllocator<Base>>, RWTextHash> allocators_;
};
