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
               {"-.5", -.5},
               {"+-1", 0},
               {"0x10", 0},
               {"nan", 0},
               {"-inf", 0},
               {"1e999", most},
               {"0.00001e400", most},
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
               {"+-8", 0},
               {"1.9", 1},
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
