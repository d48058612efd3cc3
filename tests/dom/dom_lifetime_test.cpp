#include "DomTesting.h"
#include "RandomSession.h"

using namespace domtest;

namespace {

using DomLifetime = DomTest;

TEST_F(DomLifetime, NodesLiveExactlyAsLongAsAHandleNeedsThem) {
  std::mt19937 seeds(seed());
  for (int run = 0; run < 60 && !HasFailure(); ++run) EXPECT_EQ(RandomSession(seeds()).steps(400), "");
}

// An operation may be handed the list or handle by which its own tree lives.
TEST_F(DomLifetime, AResultMayReplaceTheOnlyHandleToTheTree) {
  const auto listOf = [](std::string_view text) {
    IXMLDOMNodeList list;
    list.append(parsed(text).documentElement());
    return list;
  };
  IXMLDOMNodeList list = listOf("<a><b/><b><b/></b></a>");
  EXPECT_TRUE(list.begin()->selectNodes("//b", list));
  EXPECT_EQ(list.length(), 3);
  EXPECT_TRUE(list.begin()->selectNodes("none", list));
  EXPECT_EQ(list.length(), 0);
  list = listOf("<a><b/><b/></a>");
  int visited = 0;
  EXPECT_TRUE(list.begin()->visitNodes("b", [&](const IXMLDOMNode&) {
    ++visited;
    list.clear();
  }));
  EXPECT_EQ(visited, 2);
  IXMLDOMNode node = parsed("<a><b>x</b></a>").documentElement();
  long index = 0;
  EXPECT_TRUE(node.selectSingleNode("b", node) && node.text() == "x");
  node = node.parentNode();
  EXPECT_TRUE(node.findChild("b", "x", node, index) && node.text() == "x");
  node = node.parentNode();
  EXPECT_TRUE(node.childAt("b", 0, node) && node.text() == "x");
  node = node.ownerDocument();
  EXPECT_EQ(node.xml(), "<a><b>x</b></a>");
}

TEST_F(DomLifetime, TheDeepestTreeNeedsLittleStack) {
  onSmallStack([] {
    std::string text;
    for (int i = 0; i < IXMLDOMNode::maxDepth; ++i) text += "<e><f>x</f>";
    for (int i = 0; i < IXMLDOMNode::maxDepth; ++i) text += "</e>";
    // f stands one level below the deepest e.
    EXPECT_FALSE(IXMLDOMDocument::create().loadXML(text));
    text.erase(text.rfind("<f>x</f>"), 8);
    const IXMLDOMDocument document = parsed(text);
    const IXMLDOMNode copy = document.documentElement().cloneNode(true);
    EXPECT_EQ(document.xml(), copy.xml());
    EXPECT_EQ(copy.text(), std::string(IXMLDOMNode::maxDepth - 1, 'x'));
    IXMLDOMNodeList all;
    EXPECT_TRUE(document.selectNodes("//e[e//f]//f", all));
    EXPECT_EQ(all.length(), IXMLDOMNode::maxDepth - 1);
    // Moved below another root it would be one level too deep.
    const IXMLDOMDocument other = parsed("<top><low/></top>");
    EXPECT_FALSE(other.documentElement().appendChild(copy));
    EXPECT_TRUE(other.documentElement().appendChild(at(copy, "e")));
    EXPECT_FALSE(at(other, "top/low").appendChild(at(other, "top/e")));
    std::ostringstream out;
    EXPECT_TRUE(other.save(out));
  });
}

}  // namespace
