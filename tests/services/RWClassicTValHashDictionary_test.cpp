#include "rw/RWClassicTValHashDictionary.h"

#include <cstdint>
#include <map>
#include <utility>

#include "dom/DomTesting.h"
#include "rw/RWClassicTValHashSet.h"

namespace {

// Few enough bits that keys meet in buckets, and some that differ in their upper bits only.
struct Key {
  int value;
  Key(int key) : value(key) {}  // NOLINT(google-explicit-constructor)
  std::uint32_t number() const { return static_cast<std::uint32_t>(value); }
  friend bool operator==(const Key&, const Key&) = default;
};
struct TestHash {
  std::size_t operator()(const Key& key) const {
    const auto k = static_cast<std::size_t>(key.value);
    return k % 5 == 0 ? k << 40 : k * 7;
  }
};

using Listed = std::vector<std::pair<int, std::string>>;

// The rules taken at their word: an array of lists, walked and re-inserted for real.
class LiteralDictionary {
 public:
  LiteralDictionary(RWGrowth growth, std::size_t buckets) : growth_(growth), buckets_(buckets) {}

  void insert(int key, const std::string& value) {
    if (growth_.when == RWGrowth::When::beforeInsertion) growIfDue();
    if (std::string* present = find(key)) {
      *present = value;
      return;
    }
    bucketOf(key).emplace_back(key, value);
    ++count_;
    if (growth_.when == RWGrowth::When::afterInsertion) growIfDue();
  }
  bool remove(int key) {
    const auto gone = std::erase_if(bucketOf(key), [key](const auto& entry) { return entry.first == key; });
    count_ -= gone;
    return gone != 0;
  }
  std::string* find(int key) {
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
    buckets_.assign(std::max<std::size_t>(growth_.factor * count_, 1), {});
    for (const auto& entry : former) bucketOf(entry.first).push_back(entry);
  }

  RWGrowth growth_;
  std::vector<Listed> buckets_;
  std::size_t count_ = 0;
};

template <class Dictionary>
Listed listingOf(const Dictionary& dictionary) {
  Listed listed;
  for (const auto* entry : dictionary.listing()) listed.emplace_back(entry->key.value, entry->value);
  return listed;
}

template <class Lookup>
void compareWithLiteral() {
  using Dictionary = RWClassicTValHashDictionary<Key, std::string, TestHash, Lookup>;
  std::mt19937_64 random(domtest::seed());
  struct Case {
    RWGrowth growth;
    std::size_t buckets;
  };
  const Case cases[] = {{RWGrowth::never(), 64},     {RWGrowth::before(3, 2), 64},
                        {RWGrowth::before(3, 2), 2}, {RWGrowth::after(3, 1), 64},
                        {RWGrowth::after(1, 3), 1},  {RWGrowth::before(1, 0), 1}};
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
      ASSERT_EQ(found ? found->value : "none", expected ? *expected : "none");
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
    dictionary = copy;
    ASSERT_EQ(listingOf(dictionary), literal.listing());
  }
}

TEST(RWClassicTValHashDictionary, IsWhatItsRulesSay) { compareWithLiteral<RWByHash>(); }
TEST(RWClassicTValHashDictionary, IsTheSameByNumbers) { compareWithLiteral<RWByNumber>(); }

// Counts how often keys are compared.
struct CountedKey {
  int value;
  static inline std::size_t comparisons = 0;
  friend bool operator==(const CountedKey& a, const CountedKey& b) {
    ++comparisons;
    return a.value == b.value;
  }
};
struct ShiftedHash {
  static inline int shift = 0;
  std::size_t operator()(const CountedKey& key) const {
    return static_cast<std::size_t>(static_cast<std::uint64_t>(key.value) << shift);
  }
};

TEST(RWClassicTValHashDictionary, FindsAtOnceInADictionaryThatNeverGrows) {
  for (const int shift : {0, 20, 40}) {
    ShiftedHash::shift = shift;
    RWClassicTValHashDictionary<CountedKey, int, ShiftedHash> dictionary;  // 64 buckets for ever
    for (int key = 0; key < 50000; ++key) dictionary.insert({key}, key);
    CountedKey::comparisons = 0;
    for (int key = 0; key < 50000; ++key) ASSERT_EQ(dictionary.find({key})->value, key);
    EXPECT_EQ(CountedKey::comparisons, 50000u);
    EXPECT_EQ(dictionary.bucketCount(), 64u);
  }
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

// Against a map, through growth, removal from the midst of long runs, and values of one hash.
TEST(RWFlatTable, FindsWhatIsInIt) {
  const unsigned seed = domtest::seed();
  for (const std::uint64_t spread : {1ULL, 3ULL, 0x100ULL}) {
    std::mt19937 random(seed);
    RWFlatTable<int> table;
    std::multimap<std::uint64_t, int> model;
    for (int step = 1; step < 20000; ++step) {
      const std::uint64_t hash = random() % 700 * spread;
      const auto present = model.lower_bound(hash);
      const bool isIn = present != model.end() && present->first == hash;
      ASSERT_EQ(table.find(hash) != nullptr, isIn);
      if (random() % (step / 5000 % 2 == 0 ? 3 : 2) != 0) {
        table.add(hash, step);
        model.emplace(hash, step);
      } else if (isIn) {
        const int value = present->second;
        auto* const slot = table.find(hash, [value](int each) { return each == value; });
        ASSERT_TRUE(slot != nullptr && slot->value == value);
        table.remove(slot);
        model.erase(present);
      }
      ASSERT_EQ(table.size(), model.size());
    }
    long sum = 0;
    table.each([&sum](int value) { sum += value; });
    for (const auto& [hash, value] : model) sum -= value;
    EXPECT_EQ(sum, 0);
  }
}

}  // namespace
