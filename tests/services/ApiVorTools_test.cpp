#include "api/ApiVorTools.h"

#include <map>

#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "dom/DomTesting.h"

namespace {

class IdConverter : public testing::Test {
 protected:
  IdConverter() { converter().clear(); }
  ~IdConverter() override { converter().clear(); }
  static ApiVorToolsIdConverter& converter() { return ApiVorToolsIdConverter::the(); }
  static void pair(int number, const char* id) {
    converter().insertIdPair(ApiPmInternalId(number), ApiPmId(id));
  }
  // 99 and "?" stand for no pair.
  static int numberOf(const char* id) {
    ApiPmInternalId number(99);
    converter().apiPmIdToApiPmInternalId(ApiPmId(id), number);
    return number.value;
  }
  static std::string idOf(int number) {
    ApiPmId id("?");
    converter().apiPmInternalIdToApiPmId(ApiPmInternalId(number), id);
    return id.asString();
  }
};

TEST_F(IdConverter, PairsBothWaysAndDropsFormerPairs) {
  std::mt19937_64 random(domtest::seed());
  std::map<int, std::string> ids;
  std::map<std::string, int> numbers;
  for (int step = 0; step < 100000; ++step) {
    // Numbers in steps of a large power of two.
    const auto number = [&random] { return static_cast<int>(random() % 3000) << 12; };
    const int paired = number(), asked = number();
    const std::string id = std::to_string(number());
    if (numbers.contains(id)) ids.erase(numbers[id]);
    if (ids.contains(paired)) numbers.erase(ids[paired]);
    ids[paired] = id;
    numbers[id] = paired;
    pair(paired, id.c_str());
    const std::string askedId = std::to_string(asked);
    ASSERT_EQ(idOf(asked), ids.contains(asked) ? ids[asked] : "?");
    ASSERT_EQ(numberOf(askedId.c_str()), numbers.contains(askedId) ? numbers[askedId] : 99);
  }
}

TEST_F(IdConverter, ConvertsListsWithPendingNumbers) {
  pair(4, "four");
  pair(-2, "negative");  // a number of the data store, not a pending one
  const ApiPmIdList ids = {ApiPmId("new"), ApiPmId("four"), ApiPmId(), ApiPmId("newer"), ApiPmId("new")};
  RWClassicTValOrderedVector<ApiPmInternalId> numbers;
  EXPECT_FALSE(converter().apiPmIdsToApiPmInternalIds(ids, numbers, false));
  EXPECT_EQ(numberOf("new"), 99);
  EXPECT_TRUE(converter().apiPmIdsToApiPmInternalIds(ids, numbers, true));
  const RWClassicTValOrderedVector<ApiPmInternalId> expected = {
      ApiPmInternalId(-1), ApiPmInternalId(4), ApiPmInternalId(0), ApiPmInternalId(-3), ApiPmInternalId(-1)};
  EXPECT_EQ(numbers, expected);
  EXPECT_EQ(idOf(-3), "newer");
  EXPECT_TRUE(converter().isPending(ApiPmId("new")));
  EXPECT_FALSE(converter().isPending(ApiPmId("negative")));
  pair(11, "new");
  EXPECT_FALSE(converter().isPending(ApiPmId("new")));
  EXPECT_EQ(idOf(-1), "?");
}

class FieldsCache : public testing::Test {
 protected:
  FieldsCache() { cache().clear(); }
  ~FieldsCache() override { cache().clear(); }
  static ApiVorToolsFieldsCache& cache() { return ApiVorToolsFieldsCache::the(); }
  static std::string field(const char* id, const char* path) {
    std::string text = "?";
    return cache().getField(ApiPmId(id), path, text) ? text : "-" + text;
  }
};

TEST_F(FieldsCache, LaterDocumentsComeFirst) {
  const IXMLDOMDocument first = domtest::parsed(
      "<Data><Objects><P ExternalId='a'><name>old</name><comment>kept</comment></P></Objects></Data>");
  const IXMLDOMDocument second =
      domtest::parsed("<Data><Objects><P ExternalId='a'><name>new</name></P></Objects></Data>");
  cache().append(first);
  cache().append(second);
  EXPECT_EQ(field("a", "name"), "new");
  EXPECT_EQ(field("a", "comment"), "kept");
  cache().append(cache().documents().back());
  EXPECT_EQ(cache().documents(), (std::vector<IXMLDOMDocument>{first, second}));
  EXPECT_EQ(field("a", "name"), "old");
  cache().remove(first);
  EXPECT_EQ(field("a", "name"), "new");
}

TEST_F(FieldsCache, FindsObjectsNotReferences) {
  const IXMLDOMDocument document = domtest::parsed(
      "<Data><Objects><Q ExternalId='q'><Entries><item "
      "ExternalId='a'><name>reference</name></item></Entries></Q>"
      "<Q ExternalId='NULL'><name>null</name></Q></Objects>"
      "<Objects><P ExternalId='a'><name>object</name></P><P ExternalId='a'><name>later</name></P></Objects>"
      "<Other><P ExternalId='b'><name>elsewhere</name></P></Other></Data>");
  cache().append(document);
  for (const bool indexed : {false, true}) {
    if (indexed) {
      ASSERT_TRUE(ApiPmXmlCacheDocumentMgr::the().addDocument(document));
    }
    EXPECT_EQ(field("a", "name"), "object") << indexed;
    EXPECT_EQ(field("b", "name"), "-?") << indexed;
    EXPECT_EQ(field("NULL", "name"), "-?") << indexed;
  }
  EXPECT_TRUE(ApiPmXmlCacheDocumentMgr::the().removeDocument(document));
}

}  // namespace
