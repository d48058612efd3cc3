#include "document/DocumentTest.h"

using namespace document_test;

namespace {

class DocumentListEdits : public DocumentTest {
 protected:
  void SetUp() override {
    DocumentTest::SetUp();
    open(
        "<P ExternalId=\"p\"><children><item>a</item></children><parents/><parent>q</parent></P>"
        "<PmStudyLayout ExternalId=\"bare\"/>");
  }
};

}  // namespace

TEST_F(DocumentListEdits, AnIdStandsOnceInAList) {
  const IXMLDOMNode p = element("p"), bare = element("bare");
  for (const char* id : {"a", "b", "b"}) {
    EXPECT_TRUE(zelXmlAddChildItem(p, ApiPmId(id)) && zelXmlAddParentItem(p, ApiPmId(id)));
    EXPECT_TRUE(zelXmlContainsChild(p, ApiPmId(id)));
    EXPECT_FALSE(zelXmlAddChildItem(bare, ApiPmId(id)) || zelXmlAddParentItem(bare, ApiPmId(id)));
  }
  EXPECT_EQ(p.xml(),
            "<P ExternalId=\"p\"><children><item>a</item><item>b</item></children><parents><item>a</item>"
            "<item>b</item></parents><parent>q</parent></P>");
}

// Long lists are remembered between calls: whoever changes them besides must not go unseen.
TEST_F(DocumentListEdits, LongListsAreKnownAsTheyStand) {
  const IXMLDOMNode p = element("p");
  const auto id = [](int i) { return ApiPmId("n" + std::to_string(i)); };
  for (int i = 0; i < 200; ++i) ASSERT_TRUE(zelXmlAddChildItem(p, id(i)) && zelXmlAddChildItem(p, id(i)));
  IXMLDOMNodeList items;
  ASSERT_TRUE(p.selectNodes("children/item", items));
  EXPECT_EQ(items.length(), 201);
  EXPECT_TRUE(zelXmlContainsChild(p, id(150)));
  EXPECT_TRUE(items.item(151).putText("other"));
  EXPECT_FALSE(zelXmlContainsChild(p, id(150)));
  EXPECT_TRUE(zelXmlContainsChild(p, ApiPmId("other")));
  EXPECT_TRUE(zelXmlRemoveChildItem(p, id(10)));
  EXPECT_FALSE(zelXmlContainsChild(p, id(10)));
  EXPECT_TRUE(zelXmlAddChildItem(p, id(10)) && zelXmlContainsChild(p, id(10)));
}

TEST_F(DocumentListEdits, RemovingWhatIsNotThereIsTrueForChildrenAndFalseForParents) {
  const IXMLDOMNode p = element("p");
  EXPECT_TRUE(zelXmlRemoveChildItem(p, ApiPmId("x")));
  EXPECT_FALSE(zelXmlRemoveParentEntry(p, ApiPmId("x")));
  EXPECT_FALSE(zelXmlRemoveParentItem(p, out, ApiPmId("x")));
  EXPECT_EQ(out.documentElement(), IXMLDOMNode());
  EXPECT_TRUE(zelXmlAddParentItem(p, ApiPmId("x")));
  EXPECT_TRUE(zelXmlRemoveParentItem(p, out, ApiPmId("x")));
  EXPECT_EQ(root(out), updates(p.xml()));
  EXPECT_TRUE(zelXmlRemoveChildAndPublish(out, p, ApiPmId("a")));
  EXPECT_EQ(p.xml(), "<P ExternalId=\"p\"><children/><parents/><parent>q</parent></P>");
  EXPECT_EQ(root(out), updates(p.xml()));
}

TEST_F(DocumentListEdits, FamiliesAreFilledInByClass) {
  open("<PmLayout/><PmStudyLayout><NodeInfo><family>old</family></NodeInfo></PmStudyLayout><Strange/>");
  const std::string info = "<NodeInfo><family>";
  const std::string layout = "<PmLayout>" + info + "PmLayout</family></NodeInfo></PmLayout>";
  EXPECT_TRUE(zelXmlFillFamily(study, "PmLayout"));
  EXPECT_EQ(objects(),
            layout + "<PmStudyLayout>" + info + "old</family></NodeInfo></PmStudyLayout><Strange/>");
  EXPECT_TRUE(zelXmlFillFamily(study, ""));
  EXPECT_EQ(objects(), layout + "<PmStudyLayout>" + info +
                           "PmStudyLayout</family></NodeInfo></PmStudyLayout><Strange/>");
  EXPECT_FALSE(zelXmlFillFamily(none, ""));
}
