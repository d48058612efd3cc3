#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// Places by number, in small pages that are made when a place of theirs is first asked for with `at`. Places
// of numbers that follow one another stand side by side; a place stays at its address until `clear`.
template <class T>
class RWPagedArray {
 public:
  // The place of a number, null while its page has not been made. A place that nobody wrote to is a T().
  T* find(std::uint32_t number) const noexcept {
    const std::size_t page = number / pageSize;
    return page < pages_.size() && pages_[page] ? &pages_[page][number % pageSize] : nullptr;
  }
  T& at(std::uint32_t number) {
    const std::size_t page = number / pageSize;
    if (page >= pages_.size()) pages_.resize(page + 1);
    if (!pages_[page]) pages_[page] = std::make_unique<T[]>(pageSize);
    return pages_[page][number % pageSize];
  }
  void clear() noexcept { pages_.clear(); }
  void swap(RWPagedArray& other) noexcept { pages_.swap(other.pages_); }

 private:
  static constexpr std::size_t pageSize = 16;
  std::vector<std::unique_ptr<T[]>> pages_;
};
