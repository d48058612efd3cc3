#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

// A growable array of values.
template <class T>
class RWClassicTValOrderedVector {
 public:
  using value_type = T;

  RWClassicTValOrderedVector() = default;
  explicit RWClassicTValOrderedVector(std::size_t capacity) { values_.reserve(capacity); }
  RWClassicTValOrderedVector(std::initializer_list<T> values) : values_(values) {}

  std::size_t entries() const noexcept { return values_.size(); }
  bool isEmpty() const noexcept { return values_.empty(); }
  T& operator[](std::size_t index) { return values_[index]; }
  const T& operator[](std::size_t index) const { return values_[index]; }

  void append(T value) { values_.push_back(std::move(value)); }
  void clear() noexcept { values_.clear(); }
  void resize(std::size_t count) { values_.resize(count); }
  void reserve(std::size_t capacity) { values_.reserve(capacity); }
  bool contains(const T& value) const { return std::find(begin(), end(), value) != end(); }
  // Removes the first entry that equals `value`; false when there is none.
  bool remove(const T& value) {
    auto found = std::find(values_.begin(), values_.end(), value);
    if (found == values_.end()) return false;
    values_.erase(found);
    return true;
  }

  auto begin() noexcept { return values_.begin(); }
  auto end() noexcept { return values_.end(); }
  auto begin() const noexcept { return values_.begin(); }
  auto end() const noexcept { return values_.end(); }

  friend bool operator==(const RWClassicTValOrderedVector& a, const RWClassicTValOrderedVector& b) {
    return a.values_ == b.values_;
  }

 private:
  std::vector<T> values_;
};
