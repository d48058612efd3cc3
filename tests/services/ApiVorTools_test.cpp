#include "api/ApiVorTools.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "api/ApiPmXmlCacheDocumentMgr.h"

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
  pair(0, "zero");
  pair(7, "seven");
  pair(7, "seven");
  EXPECT_EQ(numberOf("zero"), 0);
  EXPECT_EQ(idOf(0), "zero");
  pair(8, "seven");  // a new number of an id
  EXPECT_EQ(numberOf("seven"), 8);
  EXPECT_EQ(idOf(7), "?");
  pair(8, "eight");  // a new id of a number
  EXPECT_EQ(numberOf("seven"), 99);
  EXPECT_EQ(idOf(8), "eight");
  pair(0, "eight");  // both had pairs
  EXPECT_EQ(numberOf("zero"), 99);
  EXPECT_EQ(idOf(8), "?");
  EXPECT_EQ(idOf(0), "eight");
  pair(5, "");
  EXPECT_EQ(idOf(5), "?");
}

TEST_F(IdConverter, ConvertsListsWithPendingNumbers) {
  pair(4, "four");
  pair(-2, "negative");  // a number of the data store, not a pending one
  const ApiPmIdList ids = {ApiPmId("new"), ApiPmId("four"), ApiPmId(), ApiPmId("newer"), ApiPmId("new")};
  RWClassicTValOrderedVector<ApiPmInternalId> numbers = {ApiPmInternalId(1)};
  EXPECT_FALSE(converter().apiPmIdsToApiPmInternalIds(ids, numbers, false));
  EXPECT_EQ(numbers.entries(), 1u);
  EXPECT_EQ(numberOf("new"), 99);
  EXPECT_TRUE(converter().apiPmIdsToApiPmInternalIds(ids, numbers, true));
  const RWClassicTValOrderedVector<ApiPmInternalId> expected = {
      ApiPmInternalId(-1), ApiPmInternalId(4), ApiPmInternalId(0), ApiPmInternalId(-3), ApiPmInternalId(-1)};
  EXPECT_EQ(numbers, expected);
  EXPECT_EQ(idOf(-3), "newer");
  EXPECT_TRUE(converter().isPending(ApiPmId("new")));
  EXPECT_FALSE(converter().isPending(ApiPmId("negative")));
  EXPECT_FALSE(converter().isPending(ApiPmId("four")));
  EXPECT_FALSE(converter().isPending(ApiPmId("unknown")));
  pair(11, "new");
  EXPECT_FALSE(converter().isPending(ApiPmId("new")));
  EXPECT_EQ(numberOf("new"), 11);
  EXPECT_EQ(idOf(-1), "?");
}

TEST_F(IdConverter, KeepsManyPairsApart) {
  // Numbers in steps of a large power of two, then every second one paired anew.
  constexpr int count = 20000;
  const auto number = [](int i) { return i << 12; };
  for (int i = 0; i < count; ++i) pair(number(i), std::to_string(i).c_str());
  for (int i = 0; i < count; i += 2) pair(number(i) + 1, std::to_string(i).c_str());
  for (int i = 0; i < count; ++i) {
    const std::string id = std::to_string(i);
    const bool moved = i % 2 == 0;
    ASSERT_EQ(numberOf(id.c_str()), number(i) + moved);
    ASSERT_EQ(idOf(number(i)), moved ? "?" : id);
    ASSERT_EQ(idOf(number(i) + 1), moved ? id : "?");
  }
}

class FieldsCache : public testing::Test {
 protected:
  FieldsCache() { cache().clear(); }
  ~FieldsCache() override { cache().clear(); }
  static ApiVorToolsFieldsCache& cache() { return ApiVorToolsFieldsCache::the(); }
  static IXMLDOMDocument read(const char* text) {
    const IXMLDOMDocument document = IXMLDOMDocument::create();
    EXPECT_TRUE(document.loadXML(text));
    return document;
  }
  static std::string field(const char* id, const char* path) {
    std::string text = "?";
    return cache().getField(ApiPmId(id), path, text) ? text : "-" + text;
  }
};

TEST_F(FieldsCache, LaterDocumentsComeFirst) {
  const IXMLDOMDocument first =
      read("<Data><Objects><P ExternalId='a'><name>old</name><comment>kept</comment></P></Objects></Data>");
  const IXMLDOMDocument second =
      read("<Data><Objects><P ExternalId='a'><name>new</name></P></Objects></Data>");
  EXPECT_EQ(field("a", "name"), "-?");
  cache().append(first);
  cache().append({});
  cache().append(second);
  EXPECT_EQ(field("a", "name"), "new");
  EXPECT_EQ(field("a", "comment"), "kept");
  EXPECT_EQ(field("a", "caption"), "-?");
  cache().append(cache().documents().back());
  EXPECT_EQ(cache().documents(), (std::vector<IXMLDOMDocument>{first, second}));
  EXPECT_EQ(field("a", "name"), "old");
  cache().remove(cache().documents().front());
  EXPECT_EQ(field("a", "name"), "new");
  cache().remove(first);
  EXPECT_EQ(cache().documents().size(), 1u);
}

TEST_F(FieldsCache, FindsObjectsNotReferences) {
  const IXMLDOMDocument document = read(
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
    EXPECT_EQ(field("q", "Entries/item/name"), "reference") << indexed;
    EXPECT_EQ(field("b", "name"), "-?") << indexed;
    EXPECT_EQ(field("NULL", "name"), "-?") << indexed;
    EXPECT_EQ(field("", "name"), "-?") << indexed;
  }
  EXPECT_TRUE(ApiPmXmlCacheDocumentMgr::the().removeDocument(document));
}

}  // namespace
