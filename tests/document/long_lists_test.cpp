#include "document/DocumentTest.h"

using namespace document_test;

namespace {

using DocumentLongLists = DocumentTest;

}  // namespace

// However an element with a long list is changed between publications, its copy is that of an element which
// is published from nothing, with the comment and the name that were published apart.
TEST_F(DocumentLongLists, PublishingPatchesNothingThatItShouldCopy) {
  std::mt19937 random(domtest::seed());
  std::string items;
  for (int i = 0; i < 100; ++i) items += item("c" + std::to_string(i));
  open(bare("P", "p", "<name>n</name>" + field("children", items) + field("info", items) + "<layout/>") +
       bare("Q", "q"));
  const IXMLDOMNode p = element("p"), q = element("q");
  ASSERT_TRUE(zelXmlPublishUpdate(out, p));
  int made = 0;
  for (int step = 0; step < 400; ++step) {
    const std::string number = std::to_string(++made);
    const std::string any = "c" + std::to_string(random() % 100);
    IXMLDOMNode item;
    long index = 0;
    switch (random() % 10) {
      case 0:
        EXPECT_TRUE(zelXmlRemoveChildItem(p, ApiPmId(any)));
        break;
      case 1:
        EXPECT_TRUE(zelXmlPublishField(out, at(p, "name")));
        break;
      case 2:
        EXPECT_TRUE(at(p, "layout").putText(number));
        break;
      case 3:
        EXPECT_TRUE(zelXmlPublishUpdate(out, q));
        break;
      case 4:
        EXPECT_TRUE(!at(p, "info").findChild("item", any, item, index) || zelXmlRemoveItem(p, item));
        break;
      case 5:
        EXPECT_TRUE(zelXmlAddItem(p, "info", any)) << "maybe again";
        break;
      default:
        EXPECT_TRUE(zelXmlAddChildItem(p, ApiPmId("n" + number)));
    }
    if (random() % 3 == 0) continue;
    ASSERT_TRUE(zelXmlPublishUpdate(out, p));
    IXMLDOMNode section = at(out, "Data/Objects");
    IXMLDOMElement last;
    for (auto each = section.firstElementChild(); each; each = each.nextElementSibling()) last = each;
    const IXMLDOMDocument fresh = IXMLDOMDocument::create();
    ASSERT_TRUE(zelXmlPublishUpdate(fresh, p));
    std::string expected = at(fresh, "Data/Objects/P").xml();
    IXMLDOMNode name;
    if (last.selectSingleNode("name", name)) expected.insert(expected.size() - 4, name.xml());
    ASSERT_EQ(last.xml(), expected) << "step " << step;
  }
}
