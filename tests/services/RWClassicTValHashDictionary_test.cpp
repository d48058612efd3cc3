#include "rw/RWClassicTValHashDictionary.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "rw/RWClassicTValHashSet.h"

namespace {

// Few enough bits that keys meet in buckets, and some that differ in their upper bits only.
struct TestHash {
  std::size_t operator()(int key) const {
    const auto k = static_cast<std::size_t>(key);
    return k % 5 == 0 ? k << 40 : k * 7;
  }
};

using Dictionary = RWClassicTValHashDictionary<int, std::string, TestHash>;
using Listed = std::vector<std::pair<int, std::string>>;

// The rules taken at their word: an array of lists, walked and re-inserted for real.
class LiteralDictionary {
 public:
  LiteralDictionary(RWGrowth growth, std::size_t buckets) : growth_(growth), buckets_(buckets) {}

  void insert(int key, const std::string& value) {
    if (growth_.when == RWGrowth::When::beforeInsertion) growIfDue();
    for (auto& entry : bucketOf(key)) {
      if (entry.first == key) {
        entry.second = value;
        return;
      }
    }
    bucketOf(key).emplace_back(key, value);
    ++count_;
    if (growth_.when == RWGrowth::When::afterInsertion) growIfDue();
  }
  bool remove(int key) {
    auto& bucket = bucketOf(key);
    for (auto at = bucket.begin(); at != bucket.end(); ++at) {
      if (at->first != key) continue;
      bucket.erase(at);
      --count_;
      return true;
    }
    return false;
  }
  const std::string* find(int key) {
    for (auto& entry : bucketOf(key)) {
      if (entry.first == key) return &entry.second;
    }
    return nullptr;
  }
  void clear() {
    for (auto& bucket : buckets_) bucket.clear();
    count_ = 0;
  }
  Listed listing() const {
    Listed listed;
    for (const auto& bucket : buckets_) listed.insert(listed.end(), bucket.begin(), bucket.end());
    return listed;
  }
  std::size_t entries() const { return count_; }
  std::size_t bucketCount() const { return buckets_.size(); }

 private:
  Listed& bucketOf(int key) { return buckets_[TestHash{}(key) % buckets_.size()]; }
  void growIfDue() {
    if (count_ <= growth_.limit * buckets_.size()) return;
    const Listed former = listing();
    buckets_.assign(growth_.factor * count_, {});
    for (const auto& entry : former) bucketOf(entry.first).push_back(entry);
  }

  RWGrowth growth_;
  std::vector<Listed> buckets_;
  std::size_t count_ = 0;
};

Listed listingOf(const Dictionary& dictionary) {
  Listed listed;
  for (const auto* entry : dictionary.listing()) listed.emplace_back(entry->key, entry->value);
  return listed;
}

TEST(RWClassicTValHashDictionary, IsWhatItsRulesSay) {
  const char* given = std::getenv("ZELXML_SEED");
  const auto seed = given ? std::strtoull(given, nullptr, 10) : std::random_device{}();
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  std::mt19937_64 random(seed);
  struct Case {
    RWGrowth growth;
    std::size_t buckets;
  };
  const Case cases[] = {{RWGrowth::never(), 64},      {RWGrowth::never(), 1},
                        {RWGrowth::before(3, 2), 64}, {RWGrowth::before(3, 2), 2},
                        {RWGrowth::after(3, 1), 64},  {RWGrowth::after(3, 1), 3},
                        {RWGrowth::before(6, 1), 10}, {RWGrowth::after(1, 3), 1}};
  for (const auto& [growth, buckets] : cases) {
    Dictionary dictionary(growth, buckets);
    LiteralDictionary literal(growth, buckets);
    // Grows, shrinks and grows again, with keys that come back.
    for (int step = 0; step < 6000; ++step) {
      const int key = static_cast<int>(random() % 1500);
      const auto choice = random() % 100;
      const bool shrinking = step / 1500 == 2;
      if (choice < (shrinking ? 20u : 75u)) {
        const std::string value = std::to_string(step);
        ASSERT_EQ(dictionary.insert(key, value).value, value);
        literal.insert(key, value);
      } else {
        ASSERT_EQ(dictionary.remove(key), literal.remove(key));
      }
      if (random() % 2500 == 0) {
        dictionary.clear();
        literal.clear();
      }
      const int asked = static_cast<int>(random() % 1500);
      const auto* found = dictionary.find(asked);
      const std::string* expected = literal.find(asked);
      ASSERT_EQ(found != nullptr, expected != nullptr);
      if (found) {
        ASSERT_EQ(found->value, *expected);
      }
      ASSERT_EQ(dictionary.entries(), literal.entries());
      ASSERT_EQ(dictionary.bucketCount(), literal.bucketCount());
      if (step % 25 == 0) {
        ASSERT_EQ(listingOf(dictionary), literal.listing()) << "step " << step;
      }
    }
    Dictionary copy(dictionary);
    ASSERT_EQ(listingOf(copy), literal.listing());
    for (int key = 5000; key < 5400; ++key) {
      copy.insert(key, "new");
      literal.insert(key, "new");
    }
    ASSERT_EQ(listingOf(copy), literal.listing());
    dictionary = copy;
    ASSERT_EQ(listingOf(dictionary), literal.listing());
    ASSERT_EQ(dictionary.bucketCount(), literal.bucketCount());
  }
}

TEST(RWClassicTValHashDictionary, GrowsAtTheToldEntry) {
  struct Case {
    RWGrowth growth;
    int atEntry;
    std::size_t buckets;
  };
  const Case cases[] = {{RWGrowth::before(3, 2), 194, 386}, {RWGrowth::after(3, 1), 193, 193}};
  for (const auto& [growth, atEntry, buckets] : cases) {
    RWClassicTValHashDictionary<int, int> dictionary(growth);
    for (int key = 1; key < atEntry; ++key) dictionary.insert(key, 0);
    EXPECT_EQ(dictionary.bucketCount(), 64u);
    dictionary.insert(atEntry, 0);
    EXPECT_EQ(dictionary.bucketCount(), buckets);
    dictionary.clear();
    EXPECT_EQ(dictionary.bucketCount(), buckets);
  }
  // A present key counts as an insertion where the look comes first.
  RWClassicTValHashDictionary<int, int> before(RWGrowth::before(3, 2)), after(RWGrowth::after(3, 1));
  for (int key = 1; key <= 193; ++key) before.insert(key, 0);
  for (int key = 1; key <= 192; ++key) after.insert(key, 0);
  before.insert(7, 1);
  after.insert(7, 1);
  EXPECT_EQ(before.bucketCount(), 386u);
  EXPECT_EQ(after.bucketCount(), 64u);
}

// Counts how often keys are compared.
struct CountedKey {
  int value;
  static inline std::size_t comparisons = 0;
  friend bool operator==(const CountedKey& a, const CountedKey& b) {
    ++comparisons;
    return a.value == b.value;
  }
};
template <int Shift>
struct ShiftedHash {
  std::size_t operator()(const CountedKey& key) const {
    return static_cast<std::size_t>(static_cast<std::uint64_t>(key.value) << Shift);
  }
};

template <class Hash>
void findsEachKeyAtOnce() {
  RWClassicTValHashDictionary<CountedKey, int, Hash> dictionary;  // 64 buckets for ever
  for (int key = 0; key < 50000; ++key) dictionary.insert({key}, key);
  const auto* first = dictionary.find({0});
  CountedKey::comparisons = 0;
  for (int key = 0; key < 50000; ++key) ASSERT_EQ(dictionary.find({key})->value, key);
  EXPECT_EQ(CountedKey::comparisons, 50000u);
  EXPECT_EQ(dictionary.find({0}), first);
  EXPECT_EQ(dictionary.bucketCount(), 64u);
}

TEST(RWClassicTValHashDictionary, FindsAtOnceInADictionaryThatNeverGrows) {
  findsEachKeyAtOnce<ShiftedHash<0>>();
  findsEachKeyAtOnce<ShiftedHash<20>>();
  findsEachKeyAtOnce<ShiftedHash<40>>();
}

TEST(RWClassicTValHashSet, ListsInTheOrderOfItsDictionary) {
  RWClassicTValHashSet<int> set;
  for (const int value : {130, 2, 66, 1, 65, 2})
    EXPECT_EQ(set.insert(value), value != 2 || set.entries() < 5);
  EXPECT_EQ(set.listing(), (std::vector<int>{1, 65, 130, 2, 66}));
  EXPECT_TRUE(set.remove(130));
  EXPECT_FALSE(set.remove(130));
  EXPECT_TRUE(set.insert(130));
  EXPECT_EQ(set.listing(), (std::vector<int>{1, 65, 2, 66, 130}));
}

}  // namespace
