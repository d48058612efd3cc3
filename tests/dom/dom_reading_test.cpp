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

// An element with this many names in it, its own among them.
std::string manyNames(std::size_t count) {
  std::string text = "<n0>";
  for (std::size_t i = 1; i < count; ++i) text += "<n" + std::to_string(i) + "/>";
  return text + "</n0>";
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
  std::string tooWide = "<a";
  for (int i = 0; i <= IXMLDOMNode::maxAttributes; ++i) tooWide += "\na" + std::to_string(i) + "=''";
  const Case cases[] = {
      {"", 1, "no XML"},
      {"<a>\n<b>\n</a>", 3, "the element b of line 2"},
      {"<a/>\n<b/>", 2, "after the document element"},
      {std::string("<a/>\n\0<b/>", 10), 2, "after the document element"},
      {std::string("<a>\n\0</a>", 9), 2, ""},
      {"<a\n x='1'\n x='2'/>", 3, "x"},
      {"<a>\n&nbsp;</a>", 2, "nbsp"},
      {"<a>\n\x01</a>", 2, ""},
      {"<a>\n\xC0\xAF</a>", 2, "UTF-8"},
      {"<a x='\xFF'/>", 1, "UTF-8"},
      {"<a>]]></a>", 1, "]]>"},
      {" <?xml version='1.0'?><a/>", 1, "elsewhere than at the very beginning"},
      {"<a>1 < 2</a>", 1, "written &lt;"},
      {"<a>you & me</a>", 1, "&amp;"},
      {"<a x=1/>", 1, "not in quotes"},
      {"<a x='1' x='2'/>", 1, "the attribute x stands twice"},
      {"<?xml version='1.0'?>\nplain <a/>", 2, "text before the document element"},
      {"<?xml version='1.0'?>\n", 2, "no element in it"},
      {"plain text", 1, "no XML in it"},
      {"\x1F\x8B\x08\x01\x02\x03", 0, "gzip"},
      {std::string("\xFD"
                   "7zXZ\0\0\4",
                   8),
       0, "xz"},
      {"PK\3\4\x14", 0, "zip"},
      {"BZh91AY&SY", 0, "bzip2"},
      {"\x28\xB5\x2F\xFD\x24", 0, "zstd"},
      {std::string("\xFF\xFE\0\0<\0\0\0a\0\0\0/\0\0\0>\0\0\0", 20), 0, "UTF-32"},
      {std::string("\0\0\xFE\xFF\0\0\0<\0\0\0a\0\0\0/\0\0\0>", 20), 0, "UTF-32"},
      {std::string("<\0\0\0a\0\0\0/\0\0\0>\0\0\0", 16), 0, "UTF-32"},
      {"<?xml version='1.0' encoding='klingon'?><a/>", 1, "klingon"},
      {"<!DOCTYPE a [<!ENTITY x 'y'><!ENTITY z '&x;&x;'>]><a>&z;</a>", 1, "document type"},
      {tooDeep, 1001, "1000 levels"},
      {tooWide + "/>", IXMLDOMNode::maxAttributes + 2, "more than 256 attributes"},
      {manyNames(IXMLDOMDocument::maxNames + 1), 1, "different names"},
  };
  const IXMLDOMDocument document = parsed("<old/>");
  const std::uint64_t stamp = document.changeStamp();
  for (const Case& c : cases) {
    DomError error;
    EXPECT_FALSE(document.loadXML(c.text, &error)) << c.text;
    EXPECT_EQ(error.line, c.line) << c.text << "\n" << error.message();
    EXPECT_NE(error.reason.find(c.reason), std::string::npos) << c.text << "\n" << error.message();
    EXPECT_FALSE(error.reason.empty() || error.reason.back() == '\n') << c.text;
    EXPECT_EQ(error.reason.find("xml"), std::string::npos) << "words of the parser: " << error.reason;
    EXPECT_EQ(document.xml(), "<old/>");
  }
  EXPECT_EQ(document.changeStamp(), stamp);
  for (int i = 0; i < 1000; ++i) deep += "</e>";
  EXPECT_TRUE(document.loadXML(deep)) << "the deepest that is taken";
  EXPECT_TRUE(document.loadXML(manyNames(IXMLDOMDocument::maxNames)));
}

// Whatever a stream throws ends the reading with a reason, and the next one is told its own faults.
TEST_F(DomReading, AStreamMayThrowAnything) {
  struct Throwing : std::streambuf {
    explicit Throwing(int kind) : kind(kind) {}
    int_type underflow() override {
      if (kind == 0) throw std::runtime_error("the line is cut");
      if (kind == 1) throw 17;
      throw std::string("text");
    }
    int kind;
  };
  const IXMLDOMDocument document = parsed("<old/>");
  for (int kind = 0; kind < 3; ++kind) {
    Throwing buffer(kind);
    std::istream stream(&buffer);
    stream.exceptions(std::ios::badbit);
    DomError error;
    EXPECT_FALSE(document.load(stream, &error));
    EXPECT_FALSE(error.reason.empty());
    EXPECT_EQ(document.xml(), "<old/>");
    EXPECT_FALSE(document.loadXML("<a>", &error));
    EXPECT_NE(error.reason.find("element a"), std::string::npos) << error.reason;
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
