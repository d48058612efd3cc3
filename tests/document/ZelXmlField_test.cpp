#include "document/ZelXmlFieldRows.h"

#include <gtest/gtest.h>

#include <unordered_set>

#include "document/DocumentTest.h"

using namespace document_test;

namespace {

enum class Mode : std::uint8_t { off, on };

struct TestFields : ZelFieldWords {
  ZelField<bool> boolean{"b", "", adds};
  ZelField<int> integer{"i", "", replaces};
  ZelField<std::uint32_t> counter{"c", "", adds};
  ZelField<Mode> mode{"m", "", adds};
  ZelField<double> number{"g/h/d", "", replaces, length};
  ZelField<std::string> text{"t", "", existing};
  ZelField<ApiPmId> id{"id", "", adds};
  ZelField<ApiPmExtendedId> extended{"e", "", adds};
  ZelField<ZelXmlList<std::string>> texts{"ts", "", adds, isFalse};
  ZelField<ZelXmlList<double>> numbers{"ds", "", replaces};
  ZelField<ApiPmIdList> ids{"ids", "", adds};
  ZelField<ZelXmlList<ApiPmNameExtendedId>> poses{"ns", "", adds};
  ZelField<RTTran3D> placement{"p", "", adds};
  ZelField<RTVec3D> translation{"v", "", adds};
  ZelField<ZelHeldId> held{"s", ""};
  ZelField<ZelHeldIds> helds{"l", ""};
  ZelField<std::string> readOnly{"r", ""};
};
constexpr TestFields rows;

class FieldRows : public testing::Test {
 protected:
  // Writes two values one after the other: the element is then `xml`, and what is read `read`.
  template <class T>
  void writes(const ZelField<T>& row, const typename ZelField<T>::Value& first,
              const typename ZelField<T>::Value& second, const typename ZelField<T>::Value& read,
              const std::string& xml) {
    const IXMLDOMNode element = parse("<O/>").documentElement();
    IXMLDOMNode field;
    EXPECT_TRUE(zelXmlWriteField(element, row, first, field)) << row.name;
    EXPECT_TRUE(zelXmlWriteField(element, row, second, field)) << row.name;
    EXPECT_EQ(field.nodeName(), zelXmlFieldElement(row));
    EXPECT_EQ(element.xml(), "<O>" + xml + "</O>");
    typename ZelField<T>::Value value{};
    EXPECT_TRUE(zelXmlReadField(element, row, value)) << row.name;
    EXPECT_TRUE(value == read) << row.name;
  }
};

TEST_F(FieldRows, WriteAndReadWhatTheySay) {
  writes(rows.boolean, true, false, true, "<b>1</b><b>0</b>");
  writes(rows.integer, 1, -2, -2, "<i>-2</i>");
  writes(rows.counter, 4294967295U, 1U, 4294967295U, "<c>4294967295</c><c>1</c>");
  writes(rows.mode, Mode::on, Mode::off, Mode::on, "<m>1</m><m>0</m>");
  writes(rows.number, 1, 2.5, 2.5, "<g><h><d>2.500000</d></h></g>");
  writes(rows.id, ApiPmId("a"), ApiPmId("b"), ApiPmId("a"), "<id>a</id><id>b</id>");
  const ApiPmExtendedId key{ApiPmId("a"), ApiKey("k")};
  const std::string brim =
      "<BrimID><ProcessModelID>a</ProcessModelID><BrimRelativeID>k</BrimRelativeID></BrimID>";
  writes(rows.extended, key, {ApiPmId("b"), {}}, key, "<e>" + brim + "</e><e>b</e>");
  writes(rows.texts, {"x"}, {"y", ""}, {"x", "y", ""},
         "<ts><item>x</item></ts><ts><item>y</item><item/></ts>");
  writes(rows.numbers, {1, 2}, {3}, {3}, "<ds><item>3.000000</item></ds>");
  writes(rows.ids, {ApiPmId("a")}, {ApiPmId("a"), ApiPmId("b")}, {ApiPmId("a"), ApiPmId("b")},
         "<ids><item>a</item></ids><ids><item>a</item><item>b</item></ids>");
  writes(rows.poses, {{ApiPmId("a"), "k"}}, {}, {{ApiPmId("a"), "k"}},
         "<ns><item>" + brim + "</item></ns><ns/>");
  const RTTran3D place({1, 0, 0}, {});
  const std::string origin = "<item>0.000000</item><item>0.000000</item>";
  const std::string location = "<location><item>1.000000</item>" + origin + "</location>";
  const std::string rotation = "<rotation><item>0.000000</item>" + origin + "</rotation>";
  writes(rows.placement, place, place, place,
         "<p>" + location + rotation + "</p><p>" + location + rotation + "</p>");
  writes(rows.translation, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}, "<v>" + location + "</v><v>" + location + "</v>");
}

TEST_F(FieldRows, RefuseWhatTheySay) {
  const IXMLDOMNode element = parse("<O><r>r</r></O>").documentElement();
  IXMLDOMNode field;
  EXPECT_FALSE(zelXmlWriteField(element, rows.text, "x", field)) << "there is none to write to";
  EXPECT_FALSE(zelXmlWriteField(element, rows.readOnly, "x", field));
  const IXMLDOMNode empty = parse("<O><t/></O>").documentElement();
  EXPECT_TRUE(zelXmlWriteField(empty, rows.text, "x", field));
  EXPECT_FALSE(zelXmlWriteField(empty, rows.text, "\x01", field)) << "no document holds that";
  EXPECT_EQ(empty.xml(), "<O><t>x</t></O>");
  const ZelField<std::string> made{"t", "", ZelFieldWrite::replaces};
  EXPECT_FALSE(zelXmlWriteField(element, made, "\x01", field));
  EXPECT_EQ(element.xml(), "<O><r>r</r></O>");
}

TEST_F(FieldRows, TellWhatIsThereAndWhatIsNot) {
  const IXMLDOMNode none = parse("<O/>").documentElement();
  const IXMLDOMNode some =
      parse("<O><s><S ExternalId=\"a\"/></s><l><item><S ExternalId=\"b\"/></item></l><ts/></O>")
          .documentElement();
  ApiPmId id;
  ApiPmIdList ids;
  ZelXmlList<std::string> texts;
  double number = 7;
  EXPECT_TRUE(zelXmlReadField(some, rows.held, id) && id == ApiPmId("a"));
  EXPECT_TRUE(zelXmlReadField(some, rows.helds, ids) && ids == ApiPmIdList{ApiPmId("b")});
  EXPECT_TRUE(zelXmlReadField(some, rows.texts, texts) && texts.isEmpty());
  EXPECT_FALSE(zelXmlReadField(none, rows.held, id) || zelXmlReadField(none, rows.number, number) ||
               zelXmlReadField(none, rows.texts, texts));
  EXPECT_TRUE(zelXmlReadField(none, rows.ids, ids)) << "a list that is not there is an empty one";
  EXPECT_EQ(number, 7);
}

// The list of all rows is made of the bytes of the structures.
TEST_F(FieldRows, AreListed) {
  const auto listed = zelFieldRows<TestFields>();
  ASSERT_EQ(listed.size(), 17u);
  EXPECT_EQ(listed.front().name, "b");
  EXPECT_EQ(listed[4].unit, ZelFieldUnit::length);
  EXPECT_EQ(listed.back().write, ZelFieldWrite::readOnly);
  for (const ZelFieldGroup& group : zelXmlFieldGroups()) {
    std::unordered_set<std::string_view> names;
    for (const ZelFieldInfo& row : group.rows)
      EXPECT_TRUE(!row.meaning.empty() && names.insert(row.name).second) << group.owner << ' ' << row.name;
  }
  ASSERT_TRUE(zelXmlFindFieldRow("weight"));
  EXPECT_EQ(zelXmlFindFieldRow("weight")->type, ZelFieldType::number);
  EXPECT_FALSE(zelXmlFindFieldRow("robotSetupTime")) << "stands in plcInfo";
}

}  // namespace
