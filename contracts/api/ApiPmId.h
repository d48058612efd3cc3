#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "rw/RWClassicTValHashDictionary.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWFlatTable.h"

// The id of an object: a text by value, compared exactly; the empty text is the null id. Each text is kept
// once per process and counted, so an id is one pointer in size, a copy is a count, and equality and hash
// take constant time. Ids belong to one thread at a time.
class ApiPmId {
 public:
  ApiPmId() noexcept = default;
  explicit ApiPmId(std::string_view text);
  ApiPmId(const ApiPmId& other) noexcept : entry_(other.entry_) {
    if (entry_) ++entry_->references;
  }
  ApiPmId(ApiPmId&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
  ApiPmId& operator=(const ApiPmId& other) noexcept {
    ApiPmId(other).swap(*this);
    return *this;
  }
  ApiPmId& operator=(ApiPmId&& other) noexcept {
    ApiPmId(std::move(other)).swap(*this);
    return *this;
  }
  ~ApiPmId() {
    if (entry_ && --entry_->references == 0) drop(entry_);
  }

  bool isNull() const noexcept { return entry_ == nullptr; }
  // Good as long as any id of this text exists.
  std::string_view text() const noexcept { return entry_ ? entry_->text() : std::string_view(); }
  std::string asString() const { return std::string(text()); }
  // A hash of the text that is the same in every run, for orders that callers see and for nothing else:
  // whoever writes ids can choose some that meet.
  std::size_t orderHash() const noexcept { return entry_ ? entry_->order : 0; }

  // A number that the text has while any id of it lives, and no other text then: a place in tables whose
  // order nobody sees. The null id has 0; ids that were made one after the other mostly have neighbouring
  // numbers.
  std::uint32_t number() const noexcept { return entry_ ? entry_->number : 0; }

  friend bool operator==(const ApiPmId& a, const ApiPmId& b) noexcept { return a.entry_ == b.entry_; }
  friend bool operator<(const ApiPmId& a, const ApiPmId& b) noexcept { return a.text() < b.text(); }
  void swap(ApiPmId& other) noexcept { std::swap(entry_, other.entry_); }

  // The id of this text if any id of it exists, else the null id: a look-up that makes nothing.
  static ApiPmId existing(std::string_view text) noexcept;

 private:
  struct Entry {
    std::uint64_t order;
    std::uint32_t references;
    std::uint32_t length;
    std::uint32_t number;  // the text stands behind it
    const char* letters() const noexcept { return reinterpret_cast<const char*>(&number + 1); }
    std::string_view text() const noexcept { return {letters(), length}; }
  };
  friend struct ApiPmIdTable;
  explicit ApiPmId(Entry* entry) noexcept : entry_(entry) {
    if (entry_) ++entry_->references;
  }
  static void drop(Entry* entry) noexcept;

  Entry* entry_ = nullptr;
};

// For look-ups: the id that a container keeps keeps its number.
template <>
struct std::hash<ApiPmId> {
  std::size_t operator()(const ApiPmId& id) const noexcept { return rwSpread(id.number()); }
};
template <>
struct RWOrderHash<ApiPmId> {
  std::size_t operator()(const ApiPmId& id) const noexcept { return id.orderHash(); }
};

using ApiPmIdList = RWClassicTValOrderedVector<ApiPmId>;
