#include "DomTesting.h"

using namespace domtest;

namespace {

using DomTree = DomTest;

TEST_F(DomTree, ANullHandleMayBeAskedAnything) {
  const IXMLDOMNode null;
  const IXMLDOMDocument noDocument;
  const IXMLDOMDocument document = parsed("<a/>");
  IXMLDOMNode found;
  IXMLDOMNodeList list;
  std::string buffer;
  std::string_view value;
  IXMLDOMElement element;
  EXPECT_EQ(null.nodeType(), NODE_INVALID);
  EXPECT_EQ(std::string(null.nodeName()) + null.nodeValue() + null.text() + null.xml(), "");
  EXPECT_TRUE(null.textView(buffer).empty());
  for (const IXMLDOMNode& none :
       {null.parentNode(), IXMLDOMNode(null.ownerDocument()), null.cloneNode(true),
        IXMLDOMNode(null.firstElementChild()), IXMLDOMNode(null.nextElementSibling()), null.getNamedItem("a"),
        noDocument.createNode(1, "a"), list.item(0), IXMLDOMNode(noDocument.documentElement()),
        IXMLDOMNode(IXMLDOMElement(document))}) {
    EXPECT_FALSE(none);
  }
  EXPECT_EQ(null.childNodes().length() + null.attributes().length(), 0);
  EXPECT_FALSE(null.putNodeValue("") || null.putText("") || null.appendChild(document) ||
               null.removeChild(null) || document.appendChild(null) || document.removeChild(null) ||
               null.selectSingleNode("a", found) || null.selectNodes("a", list) ||
               null.getAttribute("a", value) || null.setAttributeNode(null) || null.setAttribute("a", "") ||
               null.removeAttribute("a") || noDocument.loadXML("<a/>") || noDocument.save("x") ||
               noDocument.findByAttribute("a", "", element));
}

TEST_F(DomTree, AppendMovesAndKeepsIdentity) {
  const IXMLDOMDocument one = parsed("<a><b i=\"1\">x</b><c/></a>");
  const IXMLDOMDocument two = parsed("<r>text</r>");
  const IXMLDOMNode b = at(one, "a/b"), c = at(one, "a/c");
  EXPECT_TRUE(at(one, "a").appendChild(b));
  EXPECT_EQ(one.xml(), "<a><c/><b i=\"1\">x</b></a>");
  EXPECT_TRUE(c.appendChild(b));
  EXPECT_TRUE(two.documentElement().appendChild(c));
  EXPECT_EQ(one.xml(), "<a/>");
  EXPECT_EQ(two.xml(), "<r>text<c><b i=\"1\">x</b></c></r>");
  EXPECT_EQ(at(two, "r/c/b"), b);
  EXPECT_EQ(b.ownerDocument(), two);
  EXPECT_TRUE(two.appendChild(two.documentElement())) << "the only element may move to the end";
}

TEST_F(DomTree, RefusedEditsChangeNothing) {
  const IXMLDOMDocument document = parsed("<?xml version=\"1.0\"?>\n<a x=\"1\"><b><c/>t</b><!--m--></a>");
  const IXMLDOMDocument other = parsed("<o y=\"2\"/>");
  const std::string before = document.xml();
  const IXMLDOMNode a = at(document, "a"), b = at(document, "a/b"), c = at(document, "a/b/c");
  const IXMLDOMNode x = a.getNamedItem("x"), y = other.documentElement().getNamedItem("y");
  const IXMLDOMNode text = b.childNodes().item(1), comment = a.childNodes().item(1);
  const IXMLDOMNode declaration = document.childNodes().item(0);
  const std::uint32_t stamp = document.changeStamp();
  const struct {
    const char* what;
    bool done;
  } refused[] = {
      {"an ancestor", c.appendChild(a)},
      {"itself", c.appendChild(c)},
      {"an attribute", b.appendChild(x)},
      {"a document", b.appendChild(other)},
      {"its own document", b.appendChild(document)},
      {"below a text", text.appendChild(c)},
      {"below a comment", comment.appendChild(c)},
      {"below an attribute", x.appendChild(text)},
      {"a second element", document.appendChild(other.documentElement())},
      {"a second element from within", document.appendChild(b)},
      {"text at the top", document.appendChild(text)},
      {"CDATA at the top", document.appendChild(document.createNode(NODE_CDATA_SECTION, ""))},
      {"a declaration below an element", a.appendChild(declaration)},
      {"a second declaration", document.appendChild(other.createNode(NODE_PROCESSING_INSTRUCTION, "xml"))},
      {"no child of it", a.removeChild(c)},
      {"an attribute as child", a.removeChild(x)},
      {"an attribute of another", a.setAttributeNode(y)},
      {"an element as attribute", a.setAttributeNode(c)},
      {"an attribute on a document", document.setAttributeNode(document.createNode(NODE_ATTRIBUTE, "n"))},
      {"no such attribute", a.removeAttribute("X")},
      {"a bad attribute name", a.setAttribute("1", "")},
      {"a bad attribute value", a.setAttribute("x", "\x02")},
      {"a bad new attribute value", a.setAttribute("z", "\xFF")},
      {"the value of an element", a.putNodeValue("v")},
      {"the text of a document", document.putText("v")},
      {"an encoding that we do not write", declaration.putNodeValue("version=\"1.0\" encoding=\"UTF-16\"")},
      {"no version", declaration.putNodeValue("encoding=\"UTF-8\"")},
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
    for (const int type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_PROCESSING_INSTRUCTION}) {
      EXPECT_FALSE(document.createNode(type, name)) << name;
    }
  }
  for (const char* name : {"a", "_", "a-1.2", "p:a", "\u00e4\u4e2d", "a\u00b7", "\U00010000"}) {
    ASSERT_TRUE(document.createElement(name).setAttribute(name, "")) << name;
    parsed(document.createElement(name).xml());
  }
  for (const char* target : {"XML", "Xml", "xMl"}) {
    EXPECT_FALSE(document.createNode(NODE_PROCESSING_INSTRUCTION, target));
    EXPECT_TRUE(document.createElement(target));
  }
  for (const int type : {0, 5, 6, 9, 10, 11, 12, -1, 256 + 1})
    EXPECT_FALSE(document.createNode(type, "a")) << type;
}

// What a node takes comes back equal from its text, and what would not is refused.
TEST_F(DomTree, ValuesComeBackOrAreRefused) {
  const std::string values[] = {"",
                                "x",
                                " x ",
                                "\n",
                                "a\r\nb\t",
                                "]]>",
                                "]]",
                                "<&>\"'",
                                "--",
                                "a-",
                                "-a",
                                "?>",
                                "\u00e4\U0001F600",
                                "\uFFFD",
                                "\u0085\u2028",
                                "\x01",
                                "\x1F",
                                "\x7F",
                                "\uFFFE",
                                "\uFFFF",
                                "\xED\xA0\x80",
                                "\xC0\x80",
                                "\xE0\x81\x81",
                                "\xF0\x80\x81\x81",
                                "a--b",
                                "\xF5",
                                "\xE4",
                                "\u00e4\xCC",
                                std::string(1, '\0'),
                                "long text of more bytes",
                                std::string(100000, 'x') + "\r"};
  const auto refused = [](int type, const std::string& v) {
    const auto has = [&](const char* piece) { return v.find(piece) != std::string::npos; };
    bool bad = v == std::string(1, '\0') || v == "\xF5" || v == "\xE4";
    for (const char* never :
         {"\x01", "\x1F", "\uFFFE", "\uFFFF", "\xED\xA0\x80", "\xC0\x80", "\x81\x81", "\xCC"}) {
      bad = bad || has(never);
    }
    if (type == NODE_ATTRIBUTE || type == NODE_TEXT || type == NODE_ELEMENT) return bad;
    bad = bad || has("\r");
    if (type == NODE_CDATA_SECTION) return bad || has("]]>");
    if (type == NODE_COMMENT) return bad || has("--") || v.ends_with('-');
    return bad || has("?>") || v.starts_with(' ') || v.starts_with('\n');
  };
  for (const int type : {NODE_ELEMENT, NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT,
                         NODE_PROCESSING_INSTRUCTION}) {
    for (const std::string& value : values) {
      const IXMLDOMDocument document = parsed("<a/>");
      const IXMLDOMNode node = document.createNode(type, "n");
      EXPECT_EQ(node.putText("before"), true);
      const bool taken = node.putText(value);
      EXPECT_EQ(taken, !refused(type, value)) << type << " " << testing::PrintToString(value.substr(0, 40));
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
  ASSERT_TRUE(a.putText(""));
  ASSERT_TRUE(a.appendChild(document.createTextNode("")));
  EXPECT_EQ(document.xml(), "<a/>");
}

TEST_F(DomTree, TheXmlDeclarationStandsFirst) {
  const IXMLDOMDocument document = parsed("<!--c--><a/>");
  const IXMLDOMNode declaration = document.createNode(NODE_PROCESSING_INSTRUCTION, "xml");
  ASSERT_TRUE(document.appendChild(declaration));
  EXPECT_EQ(document.xml(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--c-->\n<a/>");
  EXPECT_TRUE(declaration.putNodeValue("version='1.1' standalone='no'"));
  EXPECT_EQ(parsed(document.xml()).xml(), document.xml());
  EXPECT_TRUE(document.appendChild(declaration)) << "again: it is the only one";
  EXPECT_TRUE(declaration.putNodeValue(""));
  EXPECT_EQ(document.xml(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--c-->\n<a/>");
}

TEST_F(DomTree, AnElementsTextIsANodeWhenAskedFor) {
  const IXMLDOMDocument document = parsed("<a><short>x</short><long>text of many bytes</long></a>");
  for (const char* xpath : {"a/short", "a/long"}) {
    const IXMLDOMNode element = at(document, xpath);
    const std::string text = element.text();
    const std::uint32_t stamp = document.changeStamp();
    std::string buffer;
    EXPECT_EQ(element.textView(buffer), text);
    const IXMLDOMNode node = element.childNodes().item(0);
    EXPECT_EQ(document.changeStamp(), stamp) << "looking is no change";
    EXPECT_EQ(node.nodeType(), NODE_TEXT);
    EXPECT_EQ(node.parentNode(), element);
    EXPECT_EQ(element.textView(buffer), text);
    ASSERT_TRUE(node.putNodeValue("changed"));
    EXPECT_EQ(element.text(), "changed");
    ASSERT_TRUE(element.putText(element.textView(buffer)));
    EXPECT_EQ(node.text(), "changed") << "the removed child lives";
    EXPECT_FALSE(node.parentNode());
    ASSERT_TRUE(element.appendChild(node));
    EXPECT_EQ(element.text(), "changedchanged");
    ASSERT_TRUE(element.putText(element.textView(buffer).substr(2, 9))) << "a piece of itself";
    EXPECT_EQ(element.text(), "angedchan");
  }
  EXPECT_EQ(document.text(), "angedchanangedchan");
}

TEST_F(DomTree, AttributesKeepOrderAndIdentity) {
  const IXMLDOMDocument document = parsed("<a x=\"1\" y=\"2\" z=\"3\"/>");
  const IXMLDOMElement a = document.documentElement();
  const IXMLDOMNode y = a.getNamedItem("y");
  EXPECT_FALSE(y.parentNode());
  const IXMLDOMNode fresh = document.createNode(NODE_ATTRIBUTE, "y");
  ASSERT_TRUE(fresh.putNodeValue("new"));
  ASSERT_TRUE(a.setAttributeNode(fresh));
  EXPECT_EQ(document.xml(), "<a x=\"1\" y=\"new\" z=\"3\"/>");
  EXPECT_EQ(y.nodeValue(), "2");
  ASSERT_TRUE(a.setAttributeNode(a.getNamedItem("x"))) << "where it stands already";
  ASSERT_TRUE(a.removeAttribute("x"));
  ASSERT_TRUE(a.setAttribute("y", "set"));
  ASSERT_TRUE(a.setAttribute("w", "4"));
  EXPECT_EQ(document.xml(), "<a y=\"set\" z=\"3\" w=\"4\"/>");
  EXPECT_EQ(fresh.nodeValue(), "set");
  EXPECT_EQ(fresh.xml(), "y=\"set\"");
  EXPECT_EQ(a.attributes().length(), 3);
  EXPECT_EQ(a.cloneNode(false).xml(), "<a y=\"set\" z=\"3\" w=\"4\"/>");
}

TEST_F(DomTree, ListsAreSnapshots) {
  const IXMLDOMDocument document = parsed("<a><i>1</i><i>2</i><i>3</i></a>");
  IXMLDOMNodeList found;
  ASSERT_TRUE(document.selectNodes("a/i", found));
  const IXMLDOMNodeList children = document.documentElement().childNodes();
  for (const IXMLDOMNodeList& list : {found, children}) {
    for (const IXMLDOMNode& node : list) document.documentElement().removeChild(node);
    EXPECT_EQ(list.length(), 3);
    EXPECT_EQ(list.item(2).text(), "3");
    EXPECT_FALSE(list.item(3) || list.item(-1));
  }
  EXPECT_EQ(document.xml(), "<a/>");
}

TEST_F(DomTree, StampsTellOfChangesAtOrBelow) {
  const IXMLDOMDocument document = parsed("<a><b i=\"1\"><c>t</c></b><d/></a>");
  const IXMLDOMNode a = at(document, "a"), b = at(document, "a/b"), c = at(document, "a/b/c"),
                    d = at(document, "a/d");
  const IXMLDOMNode e = document.createElement("e");
  const std::pair<const char*, std::function<bool()>> edits[] = {
      {"text", [&] { return c.putText("u"); }},
      {"value", [&] { return c.childNodes().item(0).putNodeValue("v"); }},
      {"attribute", [&] { return c.setAttribute("n", "1"); }},
      {"attribute changed", [&] { return c.getNamedItem("n").putNodeValue("2"); }},
      {"attribute gone", [&] { return c.removeAttribute("n"); }},
      {"append", [&] { return c.appendChild(e); }},
      {"remove", [&] { return c.removeChild(e); }},
  };
  for (const auto& [what, edit] : edits) {
    std::vector<std::uint32_t> before;
    for (const IXMLDOMNode& node : {c, b, a, IXMLDOMNode(document), d}) before.push_back(node.changeStamp());
    ASSERT_TRUE(edit()) << what;
    int changed = 0;
    for (const IXMLDOMNode& node : {c, b, a, IXMLDOMNode(document)}) {
      EXPECT_NE(node.changeStamp(), before[static_cast<std::size_t>(changed++)])
          << what << " " << node.nodeName();
    }
    EXPECT_EQ(d.changeStamp(), before[4]) << what;
  }
}

}  // namespace
