#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <numeric>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "rw/RWFlatTable.h"
#include "rw/RWPagedArray.h"
#include "rw/RWTextHash.h"

// When a dictionary changes its number of buckets.
struct RWGrowth {
  enum class When { never, beforeInsertion, afterInsertion } when = When::never;
  std::size_t limit = 3;   // grow when the entry count exceeds this many times the bucket count
  std::size_t factor = 1;  // to this many times the entry count

  static constexpr RWGrowth never() { return {}; }
  // Looked at before each insertion, also of a key that is present already.
  static constexpr RWGrowth before(std::size_t limit, std::size_t factor) {
    return {When::beforeInsertion, limit, factor};
  }
  static constexpr RWGrowth after(std::size_t limit, std::size_t factor) {
    return {When::afterInsertion, limit, factor};
  }
};

// The hash from which the order of a listing follows: the same in every run, for orders that callers see and
// for nothing else.
template <class K>
struct RWOrderHash : std::hash<K> {};

// How a dictionary finds an entry: by a hash of the key; or at the place `key.number()`, for keys that have a
// small number of their own while they live, and many of which have neighbouring ones.
struct RWByHash {};
struct RWByNumber {};

// A hash dictionary as callers observe it: an array of buckets, each a list with new entries at the tail;
// listings walk the buckets in ascending index and each list from its head. A look-up takes constant time
// also in a dictionary whose bucket count never grows. The two go together like this:
//
// 1. Entries stand in one sequence in order of insertion. An entry that goes leaves its place empty, and the
//    places close up when more are empty than not.
// 2. A listing is the sequence sorted by bucket (OrderHash modulo bucketCount), stable.
// 3. Growing puts the sequence into listing order first, so rule 2 goes on to give what re-inserting the old
//    buckets one after the other would give.
// 4. Look-ups go through a table of their own (Lookup), which has nothing to do with bucketCount and
// OrderHash:
//    keys that were chosen to meet in the order's buckets cost nothing.
//
// A key stays at its address until its entry goes.
template <class K, class V, class OrderHash = RWOrderHash<K>, class Lookup = RWByHash>
class RWClassicTValHashDictionary {
  static constexpr bool byNumber = std::is_same_v<Lookup, RWByNumber>;
  struct Plain {};

 public:
  struct Entry : std::conditional_t<byNumber, RTPooled, Plain> {
    const K key;
    V value;

   private:
    friend class RWClassicTValHashDictionary;
    Entry(const K& k, V v, std::size_t o) : key(k), value(std::move(v)), order(o) {}
    std::size_t order;
    std::size_t place = 0;
  };

  explicit RWClassicTValHashDictionary(RWGrowth growth = RWGrowth::never(), std::size_t buckets = 64)
      : growth_(growth), bucketCount_(buckets ? buckets : 1) {}
  RWClassicTValHashDictionary(const RWClassicTValHashDictionary& other)
      : growth_(other.growth_), bucketCount_(other.bucketCount_) {
    copyEntries(other);
  }
  RWClassicTValHashDictionary& operator=(const RWClassicTValHashDictionary& other) {
    if (this != &other) {
      clear();
      growth_ = other.growth_;
      bucketCount_ = other.bucketCount_;
      copyEntries(other);
    }
    return *this;
  }
  ~RWClassicTValHashDictionary() { clear(); }

  std::size_t entries() const noexcept { return count_; }
  bool isEmpty() const noexcept { return count_ == 0; }
  std::size_t bucketCount() const noexcept { return bucketCount_; }

  Entry* find(const K& key) const { return table_.find(key); }

  // Appends an entry, or replaces the value of a present key; then the entry keeps key and place.
  Entry& insert(const K& key, V value) {
    if (growth_.when == RWGrowth::When::beforeInsertion) growIfDue();
    if (Entry* present = find(key)) {
      present->value = std::move(value);
      return *present;
    }
    auto* entry = new Entry(key, std::move(value), OrderHash{}(key));
    entry->place = sequence_.size();
    sequence_.push_back(entry);
    table_.add(entry);
    ++count_;
    if (growth_.when == RWGrowth::When::afterInsertion) growIfDue();
    return *entry;
  }

  bool remove(const K& key) {
    Entry* entry = find(key);
    if (entry) erase(entry);
    return entry != nullptr;
  }

  // Drops an entry of this dictionary. `entry` and its key are gone afterwards.
  void erase(Entry* entry) {
    table_.remove(entry);
    sequence_[entry->place] = nullptr;
    delete entry;
    if (--count_ * 2 < sequence_.size()) closeUp();
  }

  // Empties the dictionary; the bucket count stays.
  void clear() {
    for (const Entry* entry : sequence_) delete entry;
    sequence_.clear();
    count_ = 0;
    table_.clear();
  }

  // All entries in listing order.
  std::vector<Entry*> listing() const {
    std::vector<std::size_t> start(bucketCount_ + 1, 0);
    for (const Entry* entry : sequence_) {
      if (entry) ++start[entry->order % bucketCount_ + 1];
    }
    std::partial_sum(start.begin(), start.end(), start.begin());
    std::vector<Entry*> listed(count_);
    for (Entry* entry : sequence_) {
      if (entry) listed[start[entry->order % bucketCount_]++] = entry;
    }
    return listed;
  }

 private:
  class HashTable {
   public:
    Entry* find(const K& key) const {
      const auto* slot = entries_.find(hashOf(key), [&key](const Entry* entry) { return entry->key == key; });
      return slot ? slot->value : nullptr;
    }
    void add(Entry* entry) { entries_.add(hashOf(entry->key), entry); }
    void remove(const Entry* entry) noexcept {
      entries_.remove(entries_.find(hashOf(entry->key), [entry](const Entry* e) { return e == entry; }));
    }
    void clear() noexcept { entries_.clear(); }

   private:
    // Never the order's hash where someone outside could choose the keys.
    static std::uint64_t hashOf(const K& key) {
      if constexpr (std::is_convertible_v<const K&, std::string_view>) {
        return RWTextHash{}(key);
      } else if constexpr (requires { key.number(); }) {
        return rwSpread(key.number());
      } else {
        return rwSpread(std::uint64_t{OrderHash{}(key)});
      }
    }

    RWFlatTable<Entry*> entries_;
  };

  // The entry keeps its key alive, so that its number is no other key's.
  class NumberTable {
   public:
    Entry* find(const K& key) const {
      Entry* const* place = places_.find(key.number());
      return place ? *place : nullptr;
    }
    void add(Entry* entry) { places_.at(entry->key.number()) = entry; }
    void remove(const Entry* entry) noexcept { *places_.find(entry->key.number()) = nullptr; }
    void clear() noexcept { places_.clear(); }

   private:
    RWPagedArray<Entry*> places_;
  };

  void closeUp() {
    std::erase(sequence_, nullptr);
    for (std::size_t i = 0; i < sequence_.size(); ++i) sequence_[i]->place = i;
  }
  void growIfDue() {
    if (count_ <= growth_.limit * bucketCount_) return;
    sequence_ = listing();
    for (std::size_t i = 0; i < sequence_.size(); ++i) sequence_[i]->place = i;
    bucketCount_ = std::max<std::size_t>(growth_.factor * count_, 1);
  }
  void copyEntries(const RWClassicTValHashDictionary& other) {
    const RWGrowth growth = std::exchange(growth_, RWGrowth::never());
    for (const Entry* entry : other.sequence_) {
      if (entry) insert(entry->key, entry->value);
    }
    growth_ = growth;
  }

  RWGrowth growth_;
  std::size_t bucketCount_;
  std::size_t count_ = 0;
  std::vector<Entry*> sequence_;
  std::conditional_t<byNumber, NumberTable, HashTable> table_;
};
