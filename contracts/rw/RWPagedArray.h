#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "rt/RTPool.h"

// Places by number, in small pages that are made when a place of theirs is first asked for with `at`. Places
// of numbers that follow one another stand side by side; a place stays at its address until `clear`.
template <class T>
class RWPagedArray {
 public:
  // The place of a number, null while its page has not been made. A place that nobody wrote to is a T().
  T* find(std::uint32_t number) const noexcept {
    const std::size_t page = number / pageSize;
    return page < pages_.size() && pages_[page] ? &pages_[page]->places[number % pageSize] : nullptr;
  }
  T& at(std::uint32_t number) {
    const std::size_t page = number / pageSize;
    if (page >= pages_.size()) pages_.resize(page + 1);
    if (!pages_[page]) pages_[page] = std::make_unique<Page>();
    return pages_[page]->places[number % pageSize];
  }
  void clear() noexcept { pages_.clear(); }

 private:
  // What fits a block of the pool.
  static constexpr std::size_t pageSize = std::bit_floor(std::size_t{256} / sizeof(T));
  static_assert(pageSize != 0);
  struct Page : RTPooled {
    T places[pageSize] = {};
  };
  std::vector<std::unique_ptr<Page>> pages_;
};
