#include "../../platform/dom/DomTree.h"
#include "DomTesting.h"
#include "dom/DomView.h"

using namespace domtest;

namespace {

using DomTree = DomTest;

TEST_F(DomTree, RefusedEditsChangeNothing) {
  const IXMLDOMDocument document = parsed("<?xml version=\"1.0\"?>\n<a x=\"1\"><b><c/>t</b><!--m--></a>");
  const IXMLDOMDocument other = parsed("<o y=\"2\"/>");
  const std::string before = document.xml();
  const IXMLDOMNode a = at(document, "a"), b = at(document, "a/b"), c = at(document, "a/b/c");
  const IXMLDOMNode x = a.getNamedItem("x"), y = other.documentElement().getNamedItem("y");
  const IXMLDOMNode text = b.childNodes().item(1);
  const IXMLDOMNode declaration = document.childNodes().item(0);
  const std::uint64_t stamp = document.changeStamp();
  const struct {
    const char* what;
    bool done;
  } refused[] = {
      {"an ancestor", c.appendChild(a)},
      {"an attribute", b.appendChild(x)},
      {"its own document", b.appendChild(document)},
      {"below a text", text.appendChild(c)},
      {"a second element", document.appendChild(other.documentElement())},
      {"text at the top", document.appendChild(text)},
      {"a declaration below an element", a.appendChild(declaration)},
      {"a second declaration", document.appendChild(other.createNode(NODE_PROCESSING_INSTRUCTION, "xml"))},
      {"no child of it", a.removeChild(c)},
      {"an attribute of another", a.setAttributeNode(y)},
      {"a bad attribute name", a.setAttribute("1", "")},
      {"a bad attribute value", a.setAttribute("x", "\x02")},
      {"an encoding that we do not write", declaration.putNodeValue("version=\"1.0\" encoding=\"UTF-16\"")},
      {"junk behind a declaration", declaration.putNodeValue("version=\"1.0\" junk")},
  };
  for (const auto& one : refused) EXPECT_FALSE(one.done) << one.what;
  EXPECT_EQ(document.xml(), before);
  EXPECT_EQ(other.xml(), "<o y=\"2\"/>");
  EXPECT_EQ(document.changeStamp(), stamp);
}

TEST_F(DomTree, NamesThatXmlDoesNotAllow) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  for (const char* name :
       {"", "1", "-a", ".a", "a b", "a>", "a/b", "a\xFF", "\u00d7", "a\u2028", "a=", " a", "@a"}) {
    for (const int type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_PROCESSING_INSTRUCTION})
      EXPECT_FALSE(document.createNode(type, name)) << name;
  }
}

// What a node takes comes back equal from its text, and what would not is refused.
TEST_F(DomTree, ValuesComeBackOrAreRefused) {
  using namespace std::string_literals;
  // Longer than any buffer on the way, with characters of all lengths over its edges.
  std::string nul(1, '\0'), longText;
  for (int i = 0; i < 50000; ++i) longText += i % 7 == 0 ? "\u00e4\U0001F600" : "&x";
  std::vector<std::pair<std::string, bool>> values;  // with whether XML never takes it
  for (const std::string& value : {nul, "\x01"s, "\x1F"s, "\uFFFE"s, "\uFFFF"s, "\xED\xA0\x80"s, "\xC0\x80"s,
                                   "\xE0\x81\x81"s, "\xF0\x80\x81\x81"s, "\xF5"s, "\xE4"s, "\u00e4\xCC"s})
    values.emplace_back(value, true);
  for (const std::string& value :
       {longText, ""s, "x"s, " x "s, "\n"s, "a\r\nb\t"s, "]]>"s, "]]"s, "<&>\"'"s, "--"s, "a--b"s, "a-"s,
        "-a"s, "?>"s, "\u00e4\U0001F600"s, "\uFFFD"s, "\u0085\u2028"s, "\x7F"s})
    values.emplace_back(value, false);
  const auto refused = [](int type, const std::string& v, bool never) {
    const auto has = [&](const char* piece) { return v.find(piece) != std::string::npos; };
    bool bad = never;
    if (type == NODE_ATTRIBUTE || type == NODE_TEXT || type == NODE_ELEMENT) return bad;
    bad = bad || has("\r");
    if (type == NODE_CDATA_SECTION) return bad || has("]]>");
    if (type == NODE_COMMENT) return bad || has("--") || v.ends_with('-');
    return bad || has("?>") || v.starts_with(' ') || v.starts_with('\n');
  };
  for (const int type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT,
                         NODE_PROCESSING_INSTRUCTION}) {
    for (const auto& [value, never] : values) {
      const IXMLDOMDocument document = parsed("<a/>");
      const IXMLDOMNode node = document.createNode(type, "n");
      EXPECT_EQ(node.putText("before"), true);
      const bool taken = node.putText(value);
      EXPECT_EQ(taken, !refused(type, value, never))
          << type << " " << testing::PrintToString(value.substr(0, 40));
      EXPECT_EQ(node.text(), taken ? value : "before");
      if (type == NODE_ATTRIBUTE) {
        ASSERT_TRUE(document.documentElement().setAttributeNode(node));
        EXPECT_EQ(parsed(document.xml()).documentElement().getNamedItem("n").nodeValue(), node.nodeValue());
        continue;
      }
      ASSERT_TRUE(document.documentElement().appendChild(node));
      const IXMLDOMNodeList read = parsed(document.xml()).documentElement().childNodes();
      ASSERT_EQ(read.length(), type == NODE_TEXT && node.text().empty() ? 0 : 1) << document.xml();
      EXPECT_EQ(read.item(0).text(), node.text());
    }
  }
}

TEST_F(DomTree, TextsSideBySideComeBackJoined) {
  const IXMLDOMDocument document = parsed("<a/>");
  const IXMLDOMElement a = document.documentElement();
  for (const char* piece : {"", "]", "]", ">", "", "]]", ">"}) {
    ASSERT_TRUE(a.appendChild(document.createTextNode(piece)));
  }
  EXPECT_EQ(a.childNodes().length(), 7);
  EXPECT_EQ(a.text(), "]]>]]>");
  EXPECT_EQ(parsed(document.xml()).text(), "]]>]]>");
}

TEST_F(DomTree, AnElementTakesItsOwnTextInPieces) {
  const IXMLDOMDocument document = parsed("<a><short>xyz</short><long>text of many bytes</long></a>");
  for (const char* xpath : {"a/short", "a/long"}) {
    const IXMLDOMNode element = at(document, xpath);
    const std::string text = element.text();
    const std::uint64_t stamp = document.changeStamp();
    std::string buffer;
    const IXMLDOMNode node = element.childNodes().item(0);
    EXPECT_EQ(document.changeStamp(), stamp) << "looking is no change";
    ASSERT_TRUE(element.putText(element.textView(buffer).substr(1)));
    EXPECT_EQ(element.text(), text.substr(1));
    EXPECT_EQ(node.text(), text) << "the removed child lives";
  }
}

TEST_F(DomTree, AChangeGivesAllAboveItAnotherStamp) {
  const IXMLDOMDocument document = parsed("<a><b><c>text</c></b><d/></a>");
  const IXMLDOMNode a = document.documentElement(), b = at(a, "b"), c = at(b, "c"), d = at(a, "d");
  const IXMLDOMNode made = document.createElement("e");
  const std::vector<std::pair<const char*, std::function<bool()>>> changes = {
      {"a new child", [&] { return b.appendChild(made); }},
      {"a child from elsewhere", [&] { return b.appendChild(d); }},
      {"a removed child", [&] { return b.removeChild(made); }},
      {"a text", [&] { return c.putText("other"); }},
      {"an attribute", [&] { return IXMLDOMElement(c).setAttribute("x", "1"); }},
  };
  for (const auto& [name, change] : changes) {
    const auto above = a.changeStamp(), here = b.changeStamp();
    EXPECT_TRUE(change()) << name;
    EXPECT_NE(a.changeStamp(), above) << name;
    EXPECT_NE(b.changeStamp(), here) << name;
  }
}

TEST_F(DomTree, EqualIsWhatIsWrittenAlike) {
  const IXMLDOMDocument document = parsed(
      "<r><o/><o> </o><o>t</o><o>t</o><o>text of many bytes</o><p>t</p><o a='1'/><o a='1'/><o a='2'/><o "
      "b='1'/>"
      "<o a='1' b='2'/><o b='2' a='1'/><o><![CDATA[t]]></o><o><!--t--></o><o><?t "
      "t?></o><o><i/></o><o><i/><i/></o>"
      "<o><i>t</i></o><o><i/>t</o><o>t<i/></o><o><i><j/></i><i/></o><o><i><j/></i><i/></o><o><i/><i><j/></"
      "i></o></r>");
  const IXMLDOMNodeList nodes = document.documentElement().childNodes();
  nodes.item(3).childNodes();  // its text is a node now
  for (const IXMLDOMNode& a : nodes) {
    for (const IXMLDOMNode& b : nodes) EXPECT_EQ(a.isEqualNode(b), a.xml() == b.xml()) << a.xml() << b.xml();
    EXPECT_TRUE(a.isEqualNode(a.cloneNode(true)));
    EXPECT_FALSE(a.isEqualNode(IXMLDOMNode()) || IXMLDOMNode().isEqualNode(a));
  }
  EXPECT_TRUE(document.isEqualNode(parsed(document.xml())));
}

// Names, attributes, texts and lines of a tree, as `Node` tells them.
template <class Node>
std::string told(const Node& node, const std::function<std::string(const Node&)>& attributes) {
  std::string buffer, text = std::string(node.nodeName()) + attributes(node) + ":" +
                             std::to_string(node.line()) + "=" + std::string(node.textView(buffer)) + "(";
  for (Node child = node.firstElementChild(); child; child = child.nextElementSibling())
    text += told<Node>(child, attributes);
  return text + ")";
}

TEST_F(DomTree, AViewTellsWhatAHandleTells) {
  const IXMLDOMDocument document =
      parsed("<a x='1' y='2'>t<b>long text of an element</b>\n<!--c--><b/>u<c><d z=''/></c></a>");
  const IXMLDOMElement top = document.documentElement();
  const DomView view = top;
  EXPECT_EQ(told<DomView>(view,
                          [](const DomView& node) {
                            std::string text;
                            for (DomView each = node.firstAttribute(); each; each = each.nextSibling())
                              text += "@" + std::string(each.nodeName()) + each.text();
                            return text;
                          }),
            told<IXMLDOMElement>(top, [](const IXMLDOMElement& node) {
              std::string text;
              for (const IXMLDOMNode& each : node.attributes())
                text += "@" + std::string(each.nodeName()) + each.nodeValue();
              return text;
            }));
  std::vector<int> types;
  for (DomView child = view.firstChild(); child; child = child.nextSibling())
    types.push_back(child.nodeType());
  EXPECT_EQ(types, (std::vector<int>{NODE_TEXT, NODE_ELEMENT, NODE_TEXT, NODE_COMMENT, NODE_ELEMENT,
                                     NODE_TEXT, NODE_ELEMENT}));
  std::string_view value;
  EXPECT_TRUE(view.getAttribute("y", value) && value == "2" && !view.getAttribute("z", value));
  EXPECT_TRUE(view.isEqualNode(top.cloneNode(true)) && !view.isEqualNode(view.firstElementChild()));
  const DomView none;
  EXPECT_TRUE(!none && !none.firstChild() && !none.nextElementSibling() && none.text().empty());
}

TEST_F(DomTree, AnElementTakesSoManyAttributes) {
  std::string tag = "<a";
  for (int i = 0; i < IXMLDOMNode::maxAttributes; ++i) tag += " n" + std::to_string(i) + "=''";
  const IXMLDOMDocument document = parsed(tag + "/>");
  const IXMLDOMElement a = document.documentElement();
  const IXMLDOMNode more = document.createNode(NODE_ATTRIBUTE, "more");
  EXPECT_FALSE(a.setAttribute("more", "x") || a.setAttributeNode(more));
  EXPECT_TRUE(a.setAttribute("n7", "x") && a.setAttributeNode(document.createNode(NODE_ATTRIBUTE, "n8")));
  EXPECT_TRUE(a.removeAttribute("n9") && a.setAttributeNode(more));
  EXPECT_EQ(a.attributes().length(), IXMLDOMNode::maxAttributes);
}

// Asking for a text as a node is no change: what a view shows stays where it is, whatever its length, until
// something changes.
TEST_F(DomTree, AskingForATextNodeMovesNoText) {
  for (const std::string text : {"short", "twelve bytes", "one that does not stand in its node"}) {
    const IXMLDOMDocument document = parsed("<a><b>" + text + "</b><c/></a>");
    const IXMLDOMNode b = at(document, "a/b");
    std::string buffer;
    const std::string_view view = b.textView(buffer);
    const std::uint64_t stamp = document.changeStamp();
    IXMLDOMNode node = b.childNodes().item(0);
    EXPECT_TRUE(b.childNodes().length() == 1 && b.childNodes().item(0) == node && node.parentNode() == b);
    EXPECT_EQ(view, text);
    EXPECT_EQ(document.changeStamp(), stamp);
    EXPECT_EQ(document.text(), text);
    EXPECT_EQ(document.xml(), "<a><b>" + text + "</b><c/></a>");
    EXPECT_EQ(b.cloneNode(true).xml(), b.xml());
    // Every kind of change of the text or its element, by the node and by its parent.
    EXPECT_TRUE(node.putNodeValue(b.textView(buffer).substr(1)));
    EXPECT_EQ(b.xml(), "<b>" + text.substr(1) + "</b>");
    EXPECT_TRUE(b.putText("x") && b.childNodes().item(0).text() == "x");
    EXPECT_EQ(node.parentNode(), IXMLDOMNode());
    EXPECT_EQ(node.text(), text.substr(1));
    EXPECT_TRUE(b.putText(b.textView(buffer)) && b.childNodes().length() == 1);
    node = b.childNodes().item(0);
    EXPECT_TRUE(b.appendChild(document.createElement("d")) && b.xml() == "<b>x<d/></b>");
    EXPECT_TRUE(b.putText("y") && b.childNodes().length() == 1);
    node = b.childNodes().item(0);
    EXPECT_TRUE(at(document, "a/c").appendChild(node));
    EXPECT_EQ(document.xml(), "<a><b/><c>y</c></a>");
    EXPECT_TRUE(b.putText("z") && b.removeChild(b.childNodes().item(0)));
    EXPECT_EQ(document.xml(), "<a><b/><c>y</c></a>");
    EXPECT_TRUE(b.putText("last") && b.childNodes().length() == 1);  // and so it goes with its document
  }
}

// Stamps are not given again after as many changes as 32 bits can tell apart.
TEST_F(DomTree, StampsOutliveFourBillionChanges) {
  const IXMLDOMDocument document = parsed("<a/>");
  const std::uint64_t first = document.changeStamp();
  dom::lastStamp += (std::uint64_t{1} << 32) - 1;
  EXPECT_TRUE(document.documentElement().putText("x"));
  EXPECT_EQ(document.changeStamp(), first + (std::uint64_t{1} << 32));
}

}  // namespace
