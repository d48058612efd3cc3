#include "DomTesting.h"

using namespace domtest;

namespace {

using DomReading = DomTest;

TEST_F(DomReading, WritesWhatItRead) {
  struct Case {
    std::string text;
    std::string written;  // empty: the same
  };
  const Case cases[] = {
      {"<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\n<a/>\n", ""},
      {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE4</a>",
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\u00e4</a>"},
      {"\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<a/>", "<?xml version=\"1.0\"?>\n<a/>"},
      {"<!--1-->\n<?p  v w?>\n<a/>\n<!--2-->\n", "<!--1-->\n<?p v w?>\n<a/>\n<!--2-->\n"},
      {"<a>\n\t<b> </b>  x <c>  y</c>\n</a>\n", ""},
      {"<a>1 &lt; 2 &amp;&amp; 3 &gt; 2 &quot;&apos;</a>", "<a>1 &lt; 2 &amp;&amp; 3 > 2 \"'</a>"},
      {"<a x='\"&lt;&amp;&gt;&#9;&#10;&#13;' y=\"1\n2\"/>",
       "<a x=\"&quot;&lt;&amp;>&#9;&#10;&#13;\" y=\"1 2\"/>"},
      {"<a>one\r\ntwo\rthree&#13;</a>", "<a>one\ntwo\nthree&#13;</a>"},
      {"<a><![CDATA[<&]]><![CDATA[]]><![CDATA[x]]>t<!---->u<?q?></a>", ""},
      {"<p:a xmlns:p=\"u\" p:x=\"1\" xmlns=\"d\" q:y=\"2\"><r:b/></p:a>", ""},
      {"<\u00e4\u00f6 \u00fc=\"1\"/>", ""},
  };
  for (const Case& c : cases) {
    const IXMLDOMDocument document = parsed(c.text);
    EXPECT_EQ(document.xml(), c.written.empty() ? c.text : c.written);
    EXPECT_EQ(parsed(document.xml()).xml(), document.xml()) << "second reading";
  }
}

TEST_F(DomReading, PiecesOfLongContentAreOneNode) {
  // Longer than any buffer on the way, with characters of all lengths over their edges.
  std::string text, plain;
  for (int i = 0; i < 100000; ++i) {
    text += i % 7 == 0 ? "\u00e4\U0001F600" : "&amp;x";
    plain += i % 7 == 0 ? "\u00e4\U0001F600" : "&x";
  }
  const std::string section(300000, 's');
  const IXMLDOMDocument document =
      parsed("<a v=\"" + text + "\"><t>" + text + "</t><![CDATA[" + section + "]]></a>");
  const IXMLDOMNodeList children = document.documentElement().childNodes();
  ASSERT_EQ(children.length(), 2);
  EXPECT_EQ(children.item(0).childNodes().length(), 1);
  EXPECT_EQ(children.item(0).text(), plain);
  EXPECT_EQ(document.documentElement().getNamedItem("v").nodeValue(), plain);
  EXPECT_EQ(children.item(1).nodeValue(), section);
}

TEST_F(DomReading, OtherEncodingsAreConverted) {
  const auto wide = [](std::u16string_view text, bool little) {
    std::string bytes;
    for (const char16_t c : text) {
      const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
      bytes += little ? std::string{low, high} : std::string{high, low};
    }
    return bytes;
  };
  const std::u16string_view text =
      u"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a>\u00e4\U0001F600</a>\n";
  const std::string expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\u00e4\U0001F600</a>\n";
  EXPECT_EQ(parsed(wide(text, true)).xml(), expected);
  EXPECT_EQ(parsed(wide(text, false)).xml(), expected);
  DomError error;
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  EXPECT_FALSE(document.loadXML(wide(text, true) + "x", &error)) << "half a character at the end";
  EXPECT_FALSE(document.loadXML(wide(u"\uFEFF<a>\xD800</a>", true), &error)) << "half a pair";
}

TEST_F(DomReading, RefusesWithThePlaceAndLeavesTheDocument) {
  struct Case {
    std::string text;
    unsigned line;
    std::string reason;  // a piece of it
  };
  std::string deep, tooDeep;
  for (int i = 0; i < 1000; ++i) deep += "<e>\n";
  tooDeep = deep + "<e/>";
  const Case cases[] = {
      {"", 1, "no XML"},
      {"text", 1, ""},
      {"<a>\n<b>\n</a>", 3, "the element b of line 2"},
      {"<a/>\n<b/>", 2, "after the document element"},
      {std::string("<a/>\n\0<b/>", 10), 2, "after the document element"},
      {std::string("<a>\n\0</a>", 9), 2, ""},
      {"<a\n x='1'\n x='2'/>", 3, "x"},
      {"<a>\n&nbsp;</a>", 2, "nbsp"},
      {"<a>&#0;</a>", 1, ""},
      {"<a>\n\x01</a>", 2, ""},
      {"<a>\n\xC0\xAF</a>", 2, "UTF-8"},
      {"<a x='\xFF'/>", 1, "UTF-8"},
      {"<a>]]></a>", 1, "]]>"},
      {" <?xml version='1.0'?><a/>", 1, ""},
      {"<?xml version='1.0' encoding='klingon'?><a/>", 1, "klingon"},
      {"<!DOCTYPE a [<!ENTITY x 'y'><!ENTITY z '&x;&x;'>]><a>&z;</a>", 1, "document type"},
      {tooDeep, 1001, "1000 levels"},
  };
  const IXMLDOMDocument document = parsed("<old/>");
  const std::uint32_t stamp = document.changeStamp();
  for (const Case& c : cases) {
    DomError error;
    EXPECT_FALSE(document.loadXML(c.text, &error)) << c.text;
    EXPECT_EQ(error.line, c.line) << c.text << "\n" << error.message();
    EXPECT_NE(error.reason.find(c.reason), std::string::npos) << c.text << "\n" << error.message();
    EXPECT_FALSE(error.reason.empty() || error.reason.back() == '\n') << c.text;
    EXPECT_EQ(document.xml(), "<old/>");
    std::istringstream stream(c.text);
    EXPECT_FALSE(document.load(stream)) << c.text;
  }
  EXPECT_EQ(document.changeStamp(), stamp);
  for (int i = 0; i < 1000; ++i) deep += "</e>";
  EXPECT_TRUE(document.loadXML(deep)) << "the deepest that is taken";
}

TEST_F(DomReading, KnowsTheLineOfATag) {
  const IXMLDOMDocument document = parsed(
      "<?xml version='1.0'?>\n<!-- \n -->\n<root\n  x='>'\n  y='&#10;'\n>\n<a\n/>text\n\n<b><c\n "
      "z='1'/></b>\n"
      "<![CDATA[\n]]><d>text</d><?p\n\n?><e><!--\n--></e></root>");
  for (const auto& [xpath, line] :
       {std::pair{"root", 4u}, {"//a", 8u}, {"//b", 11u}, {"//c", 11u}, {"//d", 0u}, {"//e", 16u}}) {
    EXPECT_EQ(at(document, xpath).line(), line) << xpath;
  }
}

TEST_F(DomReading, HandlesOutliveTheContentThatALoadReplaces) {
  const IXMLDOMDocument document = parsed("<old><kept><x/></kept></old>");
  const IXMLDOMNode kept = at(document, "old/kept");
  ASSERT_TRUE(document.loadXML("<new kept=\"1\"/>"));
  EXPECT_EQ(document.xml(), "<new kept=\"1\"/>");
  EXPECT_EQ(kept.xml(), "<kept><x/></kept>");
  EXPECT_EQ(kept.ownerDocument(), document);
}

}  // namespace
