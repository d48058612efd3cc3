#include "document/DocumentTest.h"

using namespace document_test;

namespace {

std::string placed(const std::string& id, const std::string& x, const std::string& absoluteX,
                   const std::string& children = {}) {
  const std::string zeros = "<item/><item/><item/>";
  const std::string absolute =
      field("NodeInfo", field("absoluteLocation", field("x", absoluteX) + "<y/><z/><rx/><ry/><rz/>"));
  return bare("PmLayout", id,
              field("location", item(x) + "<item/><item/>") + field("rotation", zeros) +
                  listOf("children", children) + (absoluteX.empty() ? "" : absolute));
}

std::string name(const char* prefix, int number) {
  return std::string(prefix).append(std::to_string(number));
}

class DocumentTransforms : public DocumentTest {
 protected:
  std::string absoluteX(std::string_view id) const { return text(id, "NodeInfo/absoluteLocation/x"); }
};

}  // namespace

TEST_F(DocumentTransforms, FieldsHoldSixNumbersWithoutNegativeZero) {
  const IXMLDOMDocument document = parse("<a/>");
  const IXMLDOMNode a = at(document, "a");
  EXPECT_TRUE(zelXmlAddTransform(a, "t", RTTran3D({-1e-9, 1.5, -0.0}, {0, 0, -0.25})));
  EXPECT_TRUE(zelXmlAddTranslation(a, "v", {1, 2, -3}));
  EXPECT_EQ(
      root(document),
      "<a><t><location><item>0.000000</item><item>1.500000</item><item>0.000000</item></location>"
      "<rotation><item>0.000000</item><item>0.000000</item><item>-0.250000</item></rotation></t>"
      "<v><location><item>1.000000</item><item>2.000000</item><item>-3.000000</item></location></v></a>");
  RTTran3D read;
  RTVec3D vector;
  EXPECT_TRUE(zelXmlGetTransform(a, "t", read));
  EXPECT_TRUE(read.isNear(RTTran3D({0, 1.5, 0}, {0, 0, -0.25}), 1e-9, 1e-9));
  EXPECT_TRUE(zelXmlGetTranslation(a, "v", vector));
  EXPECT_EQ(vector, (RTVec3D{1, 2, -3}));
}

TEST_F(DocumentTransforms, AbsoluteLocationNeedsAllSixAndMakesNone) {
  const IXMLDOMDocument document =
      parse("<a><NodeInfo><absoluteLocation><x/><y/><rx/></absoluteLocation></NodeInfo></a>");
  const IXMLDOMNode a = at(document, "a");
  RTTran3D read = along(5);
  EXPECT_FALSE(zelXmlGetAbsoluteLocation(a, read));
  EXPECT_EQ(read, along(5));
  EXPECT_FALSE(zelXmlSetAbsoluteLocation(a, RTTran3D({1, 2, 3}, {})));
  EXPECT_EQ(
      root(document),
      "<a><NodeInfo><absoluteLocation><x>1.000000</x><y>2.000000</y><rx/></absoluteLocation></NodeInfo></a>");
}

TEST_F(DocumentTransforms, AMoveWithinRoundingChangesNothing) {
  open(placed("a", "1", "1"));
  const std::string before = objects();
  EXPECT_TRUE(zelXmlMoveLayout(study, element("a"), RTTran3D({1e-10, 0, 0}, {0, 0, -1e-10})));
  EXPECT_EQ(objects(), before);
  EXPECT_TRUE(zelXmlMoveLayout(study, element("a"), RTTran3D({0, 0, 0}, {0, 0, 1e-6})));
  EXPECT_EQ(text("a", "rotation"), "0.0000000.0000000.000001");
}

TEST_F(DocumentTransforms, ALayoutIsMadeForAnObjectOnly) {
  open(placed("a", "1", "1"));
  IXMLDOMNode layout;
  EXPECT_FALSE(zelXmlCreateLayoutElement(study, "PmLayout", at(study, "Data/Objects"), layout, true));
  EXPECT_FALSE(layout);
  EXPECT_TRUE(zelXmlCreateLayoutElement(study, "PmStudyLayout", at(study, "Data/Objects"), layout, false));
}

TEST_F(DocumentTransforms, PropagationEndsAtTheFirstLayoutThatCannotBeWritten) {
  open(placed("a", "0", "0", "b c d") + placed("b", "1", "1") + placed("c", "2", "") + placed("d", "3", "3"));
  EXPECT_FALSE(zelXmlPropagateAbsoluteLocation(study, element("a"), along(10)));
  EXPECT_EQ(absoluteX("a") + " " + absoluteX("b") + " " + absoluteX("d"), "10.000000 11.000000 3");
}

TEST_F(DocumentTransforms, PropagationEndsOnCyclesAndTheLastRoadPlacesASharedLayout) {
  open(placed("a", "1", "1", "b c") + placed("b", "2", "3", "s a") + placed("c", "5", "6", "s c") +
       placed("s", "1", "0", "t b") + placed("t", "1", "0"));
  EXPECT_TRUE(zelXmlPropagateAbsoluteLocation(study, element("a"), along(10)));
  EXPECT_EQ(absoluteX("a") + " " + absoluteX("c") + " " + absoluteX("s") + " " + absoluteX("t"),
            "10.000000 15.000000 16.000000 17.000000");
}

TEST_F(DocumentTransforms, PropagationIsNotBoundByTheStackOrByTheNumberOfRoads) {
  // A chain of 30,000, and 60 rows of two in which each lists both of the next row: 2^60 roads.
  std::string text;
  for (int i = 0; i < 30000; ++i) text += placed(name("l", i), "1", "0", name("l", i + 1));
  for (int i = 0; i < 60; ++i)
    for (const char* side : {"a", "b"})
      text += placed(name(side, i), "1", "0", name("a", i + 1) + " " + name("b", i + 1));
  open(text);
  EXPECT_TRUE(zelXmlPropagateAbsoluteLocation(study, element("l0"), along(0)));
  EXPECT_EQ(absoluteX("l29999"), "29999.000000");
  EXPECT_TRUE(zelXmlPropagateAbsoluteLocation(study, element("a0"), along(0)));
  EXPECT_EQ(absoluteX("b59"), "59.000000");
}
