#include "api/ApiPmId.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <set>
#include <unordered_map>

#include "api/ApiPmIds.h"
#include "dom/DomTesting.h"
#include "rw/RWClassicTValHashSet.h"

namespace {

template <class Number>
std::string numbered(const char* text, Number number) {
  return std::string(text).append(std::to_string(number));
}

TEST(ApiPmId, TextIsComparedExactly) {
  const std::string withNul("a\0b", 3);
  const std::string texts[] = {"", "a", "A", "a ", "NULL", "\xC3\xA9", withNul, std::string(5000, 'x')};
  for (const std::string& a : texts) {
    EXPECT_EQ(ApiPmId(a).text(), a);
    EXPECT_EQ(ApiPmId(a).isNull(), a.empty());
    for (const std::string& b : texts) {
      EXPECT_EQ(ApiPmId(a) == ApiPmId(b), a == b);
      EXPECT_EQ(ApiPmId(a) < ApiPmId(b), a < b);
    }
  }
}

// Listings are in the order of the hash: another one would change what earlier runs wrote.
TEST(ApiPmId, HashStaysTheSame) {
  EXPECT_EQ(ApiPmId("").orderHash(), 0u);
  EXPECT_EQ(ApiPmId("a").orderHash(), 5926988390438248908u);
  EXPECT_EQ(ApiPmId("6f9619ff-8b86-d011-b42d-00c04fc964ff").orderHash(), 7000839126072574103u);
}

TEST(ApiPmId, HashSpreadsTheIdsOfStudies) {
  const auto worstBucket = [](auto textOf) {
    std::vector<int> counts(1024);
    std::set<std::size_t> hashes;
    for (int i = 0; i < 100000; ++i) {
      const std::size_t hash = ApiPmId(textOf(i)).orderHash();
      hashes.insert(hash);
      ++counts[hash % counts.size()];
    }
    EXPECT_EQ(hashes.size(), 100000u);
    return *std::max_element(counts.begin(), counts.end());
  };
  // About 98 each; 160 is more than six standard deviations off.
  EXPECT_LT(worstBucket([](int i) { return numbered("PP-", i); }), 160);
  EXPECT_LT(worstBucket([](int i) { return std::string(i % 700, '\0') + std::to_string(i); }), 160);
}

TEST(ApiPmId, TextsLiveAsLongAsTheirIds) {
  // Some 50,000 ids are made below; most of them take numbers that were in use before, whatever ran earlier
  // in this process.
  std::uint32_t most = 0;
  {
    std::vector<ApiPmId> all;
    for (int i = 0; i < 10000; ++i) {
      all.emplace_back(numbered("at once ", i));
      most = std::max(most, all.back().number());
    }
  }
  std::mt19937_64 random(domtest::seed());
  // Ids in many hands, against plain texts.
  std::vector<ApiPmId> ids(3000);
  std::vector<std::string> texts(ids.size());
  std::unordered_map<std::string, int> uses;
  const auto put = [&](std::size_t at, const std::string& text) {
    if (!texts[at].empty() && --uses[texts[at]] == 0) uses.erase(texts[at]);
    texts[at] = text;
    if (!text.empty()) ++uses[text];
  };
  for (int step = 0; step < 200000; ++step) {
    const std::size_t at = random() % ids.size(), from = random() % ids.size();
    switch (random() % 4) {
      case 0: {
        const std::string text = numbered("lifetime ", random() % 4000);
        ids[at] = ApiPmId(text);
        put(at, text);
        break;
      }
      case 1:
        ids[at] = ids[from];
        put(at, std::string(texts[from]));
        break;
      case 2:
        if (at == from) break;
        ids[at] = std::move(ids[from]);
        put(at, std::string(texts[from]));
        put(from, "");
        ids[from] = ApiPmId();
        break;
      default: {
        const std::string text = numbered("lifetime ", random() % 4000);
        ASSERT_EQ(ApiPmId::existing(text).isNull(), uses.count(text) == 0);
      }
    }
    ASSERT_EQ(ids[from].text(), texts[from]);
    if (step % 5000 != 0) continue;
    // A number for each text that lives, and the numbers of those that went are taken again.
    std::unordered_map<std::uint32_t, std::string> numbers;
    for (const ApiPmId& id : ids) {
      const auto [known, isNew] = numbers.emplace(id.number(), id.text());
      ASSERT_EQ(known->second, id.text());
      ASSERT_LE(id.number(), most + 10000);
      ASSERT_EQ(id.number() == 0, id.isNull());
    }
  }
  ids.clear();
  for (int i = 0; i < 4000; ++i) ASSERT_TRUE(ApiPmId::existing(numbered("lifetime ", i)).isNull());
}

TEST(ApiGlobalUniqueId, TakesOnlyItsUsualForm) {
  const std::string plain = "6F9619FF-8b86-D011-B42D-00C04FC964FF";
  for (const std::string& text : {plain, "{" + plain + "}"})
    EXPECT_EQ(ApiGlobalUniqueId(text).getAsString(), plain);
  for (const std::string& text : {std::string(), std::string("{}"), "{" + plain, plain + "}", plain + " ",
                                  std::string("g").append(plain, 1), plain.substr(1),
                                  std::string("6F9619FF8b86D011B42D00C04FC964FF")}) {
    EXPECT_TRUE(ApiGlobalUniqueId(text).isNull()) << text;
  }
}

TEST(NewGuidText, IsARandomIdInTheUsualForm) {
  std::set<std::string> made;
  for (int i = 0; i < 1000; ++i) {
    const std::string text = api::newGuidText();
    EXPECT_EQ(ApiGlobalUniqueId(text).getAsString(), text);
    EXPECT_EQ(text[14], '4') << "a random id says so";
    made.insert(text);
  }
  EXPECT_EQ(made.size(), 1000u);
}

// Ids that were made to meet under the hash that anybody can work out: look-ups go by another one, and the
// order that callers see is what it is.
TEST(ApiPmId, IdsMadeToMeetAreFoundApart) {
  const auto textOf = [](std::uint64_t first, std::uint64_t second) {
    std::string text(16, '\0');
    std::memcpy(text.data(), &first, 8);
    std::memcpy(text.data() + 8, &second, 8);
    return text;
  };
  constexpr std::uint64_t factor = 0x9fb21c651e98df25ULL;
  std::vector<ApiPmId> ids;
  std::set<std::size_t> places;
  RWClassicTValHashDictionary<ApiPmId, int> byHash;
  RWClassicTValHashSet<std::string> texts;
  for (std::uint64_t i = 0; i < 2000; ++i) {
    std::uint64_t state = (0x9e3779b97f4a7c15ULL ^ 16 ^ i) * factor;
    state ^= state >> 32;
    ids.emplace_back(textOf(i, state ^ 4711));
    places.insert(RWTextHash{}(ids.back().text()) % (1 << 22));
    byHash.insert(ids.back(), static_cast<int>(i));
    texts.insert(ids.back().asString());
    ASSERT_EQ(ids.back().orderHash(), ids.front().orderHash());
  }
  EXPECT_GT(places.size(), 1980U);
  for (std::size_t i = 0; i < ids.size(); ++i) {
    ASSERT_EQ(byHash.find(ids[i])->value, static_cast<int>(i));
    ASSERT_EQ(byHash.listing()[i]->key, ids[i]);
    ASSERT_EQ(ApiPmId::existing(ids[i].asString()), ids[i]);
    i += 100;
  }
}

}  // namespace
