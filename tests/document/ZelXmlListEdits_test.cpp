#include "document/DocumentTest.h"

using namespace document_test;

namespace {

class DocumentListEdits : public DocumentTest {
 protected:
  void SetUp() override {
    DocumentTest::SetUp();
    open(withLists("a", "") + bare("PmStudyLayout", "bare"));
  }
  static std::string withLists(const std::string& children, const std::string& parents) {
    return bare("P", "p", listOf("children", children) + listOf("parents", parents) + "<parent>q</parent>");
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
  EXPECT_EQ(p.xml(), withLists("a b", "a b"));
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
  EXPECT_EQ(p.xml(), withLists("", ""));
  EXPECT_EQ(root(out), updates(p.xml()));
}

TEST_F(DocumentListEdits, FamiliesAreFilledInByClass) {
  open("<PmLayout/>" + field("PmStudyLayout", familyOf("old")) + "<Strange/>");
  const std::string layout = field("PmLayout", familyOf("PmLayout"));
  EXPECT_TRUE(zelXmlFillFamily(study, "PmLayout"));
  EXPECT_EQ(objects(), layout + field("PmStudyLayout", familyOf("old")) + "<Strange/>");
  EXPECT_TRUE(zelXmlFillFamily(study, ""));
  EXPECT_EQ(objects(), layout + field("PmStudyLayout", familyOf("PmStudyLayout")) + "<Strange/>");
  EXPECT_FALSE(zelXmlFillFamily(none, ""));
}
