#include <limits>

#include "document/DocumentTest.h"

using namespace document_test;

TEST(DocumentNumbers, DoublesAreReadUpToWhatIsNoNumber) {
  constexpr double most = std::numeric_limits<double>::max();
  const struct {
    const char* text;
    double value;
  } cases[] = {{"", 0},
               {" \t\n+1.5x", 1.5},
               {"-2e3,", -2000},
               {"1,5", 1},
               {".5", .5},
               {"-.5", -.5},
               {"5.", 5},
               {"1e", 1},
               {"+-1", 0},
               {"--1", 0},
               {"x1", 0},
               {"0x10", 0},
               {"nan", 0},
               {"-inf", 0},
               {"infinity", 0},
               {"1e999", most},
               {"-1e999", -most},
               {"1e-999", 0},
               {"0.0001e-400", 0},
               {"0.00001e400", most},
               {"1000e-400", 0},
               {"0.25 7", .25},
               {"99999999999", 99999999999}};
  for (const auto& c : cases) EXPECT_EQ(zelXmlParseDouble(c.text), c.value) << '"' << c.text << '"';
  const std::string zeros(400, '0');
  EXPECT_EQ(zelXmlParseDouble("1" + zeros + "e-10"), most);
  EXPECT_EQ(zelXmlParseDouble("0." + zeros + "1e10"), 0);
}

TEST(DocumentNumbers, IntegersAreReadUpToWhatIsNoNumberAndClamped) {
  const struct {
    const char* text;
    long value;
  } cases[] = {{"", 0},
               {" 12ab", 12},
               {"-7", -7},
               {"+8", 8},
               {"+-8", 0},
               {"1.9", 1},
               {"a1", 0},
               {"0010", 10},
               {"99999999999999999999", std::numeric_limits<long>::max()},
               {"-99999999999999999999", std::numeric_limits<long>::min()}};
  for (const auto& c : cases) EXPECT_EQ(zelXmlParseLong(c.text), c.value) << '"' << c.text << '"';

  const IXMLDOMDocument document = parse("<a><big>4294967297</big></a>");
  int number = 0;
  EXPECT_TRUE(zelXmlGetInt(at(document, "a"), "big", number));
  EXPECT_EQ(number, std::numeric_limits<int>::max());
}

TEST(DocumentNumbers, DoublesAreWrittenWithSixDecimals) {
  EXPECT_EQ(zelXmlFormatDouble(123.4), "123.400000");
  EXPECT_EQ(zelXmlFormatDouble(-0.0000016), "-0.000002");
  EXPECT_EQ(zelXmlFormatDouble(1e20), "100000000000000000000.000000");
  const double least = std::numeric_limits<double>::lowest();
  EXPECT_EQ(zelXmlParseDouble(zelXmlFormatDouble(least)), least);
}

TEST(DocumentPrimitives, AddAlwaysAddsAndEnsureReuses) {
  const IXMLDOMDocument document = parse("<a/>");
  const IXMLDOMNode a = at(document, "a");
  IXMLDOMNode child;
  EXPECT_TRUE(zelXmlEnsureChild(document, a, "n", child));
  EXPECT_TRUE(zelXmlSetText(child, "1"));
  EXPECT_TRUE(zelXmlEnsureChild(document, a, "n", child));
  EXPECT_TRUE(zelXmlAddChildWithText(document, a, "n", "2"));
  EXPECT_TRUE(zelXmlGetOrAddChild(a, "m", child));
  EXPECT_TRUE(zelXmlGetOrAddChild(a, "m", child));
  EXPECT_TRUE(zelXmlAddChild(child, "m", child));
  EXPECT_EQ(root(document), "<a><n>1</n><n>2</n><m><m/></m></a>");
  EXPECT_TRUE(zelXmlRemoveNamedChild(a, "n"));
  EXPECT_FALSE(zelXmlRemoveNamedChild(a, "x"));
  EXPECT_TRUE(zelXmlRemoveFromParent(child));
  EXPECT_FALSE(zelXmlRemoveFromParent(child));
  EXPECT_EQ(root(document), "<a><n>2</n><m/></a>");
}

TEST(DocumentPrimitives, RefusedTextAndNamesLeaveNothing) {
  const IXMLDOMDocument document = parse("<a/>");
  const IXMLDOMNode a = at(document, "a");
  IXMLDOMNode child = a;
  EXPECT_FALSE(zelXmlAddChildWithText(document, a, "n", "\x01"));
  EXPECT_FALSE(zelXmlAddChildWithText(document, a, "no name", "1"));
  EXPECT_FALSE(zelXmlAddChild(a, "no name", child));
  EXPECT_FALSE(zelXmlCreateDomNode(document, 1, "no name", child));
  EXPECT_EQ(child, a);
  EXPECT_EQ(root(document), "<a/>");
}

TEST(DocumentPrimitives, NullElementsFailAndLeaveResults) {
  const IXMLDOMNode null;
  const IXMLDOMDocument document = parse("<a/>");
  IXMLDOMNode child = at(document, "a");
  const IXMLDOMNode before = child;
  IXMLDOMNodeList list;
  std::string text = "kept";
  double number = 7;
  long integer = 7;
  ApiPmIdList ids = {ApiPmId("kept")};
  RTVec3D vector{1, 2, 3};
  EXPECT_FALSE(zelXmlSelectChild(null, "a", child));
  EXPECT_FALSE(zelXmlSelectChildren(null, "a", list));
  EXPECT_FALSE(zelXmlAddChild(null, "a", child));
  EXPECT_FALSE(zelXmlGetOrAddChild(null, "a", child));
  EXPECT_FALSE(zelXmlEnsureChild(document, null, "a", child));
  EXPECT_FALSE(zelXmlGetParent(null, child));
  EXPECT_FALSE(zelXmlGetNodeName(null, text));
  EXPECT_FALSE(zelXmlGetText(null, text));
  EXPECT_FALSE(zelXmlGetDoubleText(null, number));
  EXPECT_FALSE(zelXmlGetLongText(null, integer));
  EXPECT_FALSE(zelXmlGetExternalId(null, text));
  EXPECT_FALSE(zelXmlSetText(null, "x"));
  EXPECT_FALSE(zelXmlSetAttribute(null, "a", "x"));
  EXPECT_FALSE(zelXmlGetIdList(null, "children", ids));
  EXPECT_FALSE(zelXmlGetChildIds(null, ids));
  EXPECT_FALSE(zelXmlGetVec3(null, "location/item", vector));
  EXPECT_FALSE(zelXmlRemoveChildItem(null, ApiPmId("x")));
  EXPECT_EQ(child, before);
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(number, 7);
  EXPECT_EQ(integer, 7);
  EXPECT_EQ(ids, ApiPmIdList{ApiPmId("kept")});
  EXPECT_EQ(vector, (RTVec3D{1, 2, 3}));
}
