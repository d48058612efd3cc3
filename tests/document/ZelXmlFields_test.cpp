#include "document/DocumentTest.h"

using namespace document_test;

namespace {

ApiPmIdList idList(std::initializer_list<const char*> texts) {
  ApiPmIdList ids;
  for (const char* text : texts) ids.append(ApiPmId(text));
  return ids;
}

}  // namespace

TEST(DocumentFields, WritersAddAndReadersTakeTheFirst) {
  const IXMLDOMDocument document = parse("<a/>");
  const IXMLDOMNode a = at(document, "a");
  EXPECT_TRUE(zelXmlAddBool(a, "bool", true));
  EXPECT_TRUE(zelXmlAddBool(a, "bool", false));
  EXPECT_TRUE(zelXmlAddInt(a, "int", -12));
  EXPECT_TRUE(zelXmlAddDouble(a, "double", 2.0000004));
  EXPECT_TRUE(zelXmlAddWideString(a, "text", " <\xC3\xA4& "));
  EXPECT_EQ(root(document),
            "<a><bool>1</bool><bool>0</bool><int>-12</int><double>2.000000</double>"
            "<text> &lt;\xC3\xA4&amp; </text></a>");
  bool truth = false;
  int integer = 0;
  double number = 0;
  std::string text;
  EXPECT_TRUE(zelXmlGetBool(a, "bool", truth) && truth);
  EXPECT_TRUE(zelXmlGetInt(a, "int", integer) && integer == -12);
  EXPECT_TRUE(zelXmlGetDouble(a, "double", number) && number == 2);
  EXPECT_TRUE(zelXmlGetWideString(a, "text", text) && text == " <\xC3\xA4& ");
  EXPECT_FALSE(zelXmlGetString(a, "absent", text) || text.empty());
}

TEST(DocumentFields, ListWritersReuseTheFieldOnlyWhenTold) {
  const IXMLDOMDocument document = parse("<a/>");
  const IXMLDOMNode a = at(document, "a");
  EXPECT_TRUE(zelXmlAddTextList(a, "t", {"x"}, true));
  EXPECT_TRUE(zelXmlAddWideStringList(a, "t", {"", "y"}, true));
  EXPECT_TRUE(zelXmlAddDoubleList(a, "t", {1.5}, false));
  EXPECT_TRUE(zelXmlAddIdList(a, "i", {}, false));
  EXPECT_EQ(root(document),
            "<a><t><item>x</item><item/><item>y</item></t><t><item>1.500000</item></t><i/></a>");
  ZelXmlList<std::string> texts = {"before"};
  EXPECT_TRUE(zelXmlGetTextList(a, "t", texts));
  EXPECT_EQ(texts, (ZelXmlList<std::string>{"before", "x", "", "y", "1.500000"}));
}

TEST(DocumentFields, ListsAreReadByNameAndByPath) {
  const IXMLDOMDocument document =
      parse("<a><g><n>0</n><l><item>1</item><x>2</x><item> 3</item></l></g></a>");
  ZelXmlList<double> numbers;
  EXPECT_TRUE(zelXmlGetDoubleList(at(document, "a"), "g/l", numbers));
  EXPECT_EQ(numbers, (ZelXmlList<double>{1, 3}));
  EXPECT_TRUE(zelXmlGetDoubleList(at(document, "a"), "absent", numbers));
  EXPECT_EQ(numbers.entries(), 2U);
  EXPECT_TRUE(zelXmlGetDoubleList(at(document, "a/g"), "l", numbers));
  EXPECT_EQ(numbers, (ZelXmlList<double>{1, 3, 1, 3}));
}

TEST(DocumentFields, IdListsHoldEachIdOnceButKeepWhatTheyHeld) {
  std::string items;
  ApiPmIdList expected = idList({"b", "b"});
  for (int i = 0; i < 40; ++i) {
    const std::string id = "id" + std::to_string(i % 25);
    items += item(id) + item("b");
    if (i < 25) expected.append(ApiPmId(id));
    if (i == 0) expected.append(ApiPmId("b"));
  }
  const IXMLDOMDocument document = parse("<a><children>" + items + "</children></a>");
  ApiPmIdList ids = idList({"b", "b"});
  EXPECT_TRUE(zelXmlGetIdList(at(document, "a"), "children", ids));
  EXPECT_EQ(ids, expected);
}

TEST(DocumentFields, IdsWithARelativePartHaveTwoForms) {
  const IXMLDOMDocument document = parse("<a><plain/><keyed/><broken><BrimID/></broken></a>");
  const IXMLDOMNode a = at(document, "a");
  const ApiPmExtendedId plain{ApiPmId("p"), {}}, keyed{ApiPmId("k"), ApiKey("7")};
  EXPECT_TRUE(zelXmlAddExtendedId(at(a, "plain"), plain));
  EXPECT_TRUE(zelXmlAddExtendedId(at(a, "keyed"), keyed));
  EXPECT_TRUE(zelXmlAddNameExtendedIdList(a, "list", {{ApiPmId("n"), ""}, {ApiPmId("n"), "wheel"}}, false));
  const std::string brim =
      "<BrimID><ProcessModelID>k</ProcessModelID><BrimRelativeID>7</BrimRelativeID></BrimID>";
  EXPECT_EQ(root(document),
            "<a><plain>p</plain><keyed>" + brim +
                "</keyed><broken><BrimID/></broken><list><item>n</item><item><BrimID><ProcessModelID>n"
                "</ProcessModelID><BrimRelativeID>wheel</BrimRelativeID></BrimID></item></list></a>");
  ApiPmExtendedId id{ApiPmId("old"), ApiKey("old")};
  EXPECT_FALSE(zelXmlGetExtendedId(at(a, "broken"), id));
  EXPECT_EQ(id, (ApiPmExtendedId{ApiPmId("old"), ApiKey("old")}));
  EXPECT_TRUE(zelXmlGetExtendedId(at(a, "plain"), id));
  EXPECT_EQ(id, plain);
  EXPECT_TRUE(zelXmlGetExtendedId(at(a, "keyed"), id));
  EXPECT_EQ(id, keyed);
  ZelXmlList<ApiPmNameExtendedId> list;
  EXPECT_TRUE(zelXmlGetNameExtendedIdList(a, "list", list));
  EXPECT_EQ(list, (ZelXmlList<ApiPmNameExtendedId>{{ApiPmId("n"), ""}, {ApiPmId("n"), "wheel"}}));
}

TEST(DocumentFields, NestedReferencesAreReadUpToTheFirstWithoutId) {
  const IXMLDOMDocument document = parse(
      "<a><ref> <Sig ExternalId='s'/></ref><refs><item><Sig ExternalId='1'/></item><item><Sig/></item>"
      "<item><Sig ExternalId='3'/></item></refs><none/></a>");
  const IXMLDOMNode a = at(document, "a");
  ApiPmId id;
  ApiPmIdList ids;
  EXPECT_TRUE(zelXmlGetNestedRef(a, "ref", id));
  EXPECT_EQ(id.text(), "s");
  EXPECT_FALSE(zelXmlGetNestedRef(a, "none", id));
  EXPECT_FALSE(zelXmlGetNestedRefList(a, "refs", ids));
  EXPECT_EQ(ids, idList({"1"}));
  EXPECT_TRUE(zelXmlAddNode(a, "moved", at(a, "ref/Sig")));
  EXPECT_EQ(at(a, "moved").xml() + at(a, "ref").xml(), "<moved><Sig ExternalId=\"s\"/></moved><ref> </ref>");
}
