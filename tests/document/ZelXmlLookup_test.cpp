#include "document/DocumentTest.h"

using namespace document_test;

namespace {

using DocumentLookup = DocumentTest;

}  // namespace

TEST_F(DocumentLookup, ADocumentWithoutIndexIsSearched) {
  const IXMLDOMDocument document =
      parse(dataOf("<A><x ExternalId='a\"]'/></A><B ExternalId='NULL'/><B ExternalId=''/>"));
  IXMLDOMNode found;
  EXPECT_TRUE(zelXmlFindNodeById(document, std::string_view("a\"]"), found));
  EXPECT_EQ(found.nodeName(), "x");
  EXPECT_FALSE(zelXmlFindNodeById(document, ApiPmId("NULL"), found));
  EXPECT_FALSE(zelXmlFindNodeById(document, ApiPmId(), found));
  EXPECT_EQ(found.nodeName(), "x");
}

TEST_F(DocumentLookup, ADocumentWithIndexAnswersFromItAlone) {
  open("<A ExternalId='a'><x ExternalId='inner'/><ref>a</ref><none>NULL</none><empty/></A>");
  IXMLDOMNode detached, found;
  EXPECT_TRUE(zelXmlCreateObjectElement(study, "A", "outside", detached));
  EXPECT_TRUE(zelXmlFindNodeById(study, std::string_view("outside"), found));
  EXPECT_EQ(found, detached);
  EXPECT_FALSE(zelXmlFindNodeById(study, std::string_view("inner"), found));
  EXPECT_TRUE(zelXmlGetReferencedNode(study, element("a"), "ref", found));
  EXPECT_EQ(found, element("a"));
  for (const char* field : {"none", "empty", "absent"}) {
    EXPECT_FALSE(zelXmlGetReferencedNode(study, element("a"), field, found)) << field;
    EXPECT_FALSE(zelXmlGetReferencedNodeQuiet(study, element("a"), field, found)) << field;
  }
}

TEST_F(DocumentLookup, ALayoutIsOwnedByItsNodeElseByWhoNamesIt) {
  open(
      "<L ExternalId='l1'><node>o</node></L><L ExternalId='l2'/><L ExternalId='l3'><node/></L>"
      "<L ExternalId='l4'/><P ExternalId='p'><layout>l2</layout></P><P ExternalId='q'><layout>l3</layout></P>"
      "<P><layout>l4</layout></P>");
  const struct { const char *layout, *owner; } cases[] = {{"l1", "o"}, {"l2", "p"}, {"l3", ""}, {"l4", ""}};
  for (const auto& c : cases) {
    ApiPmId owner;
    EXPECT_EQ(zelXmlGetLayoutOwnerId(study, element(c.layout), owner), *c.owner != 0) << c.layout;
    EXPECT_EQ(owner.text(), c.owner) << c.layout;
  }
}

TEST_F(DocumentLookup, TheDataElementOfAnInstanceIsItsPrototypeElseItsMasters) {
  const std::string tool = familyOf("ToolPrototype");
  open(
      "<T ExternalId='p'/><T ExternalId='direct'><prototype>p</prototype><masterObj>m2</masterObj></T>"
      "<T ExternalId='byMaster'><prototype>NULL</prototype><masterObj>m1</masterObj></T>"
      "<T ExternalId='master'><masterObj>m2</masterObj></T><T ExternalId='no'><masterObj>p</masterObj></T>"
      "<T ExternalId='m1'><prototype>p</prototype>" +
      tool + "</T><T ExternalId='m2'>" + tool + "</T>");
  const struct {
    const char *instance, *prototype;
  } cases[] = {{"direct", "p"}, {"byMaster", "p"}, {"master", "m2"}, {"no", ""}, {"p", ""}};
  for (const auto& c : cases) {
    IXMLDOMNode prototype;
    std::string id;
    EXPECT_EQ(zelXmlGetPrototypeElement(study, element(c.instance), prototype), *c.prototype != 0)
        << c.instance;
    zelXmlGetExternalIdText(prototype, id);
    EXPECT_EQ(id, c.prototype) << c.instance;
  }
}

TEST_F(DocumentLookup, AnAssemblyIsParentOfAssembliesOnly) {
  open(made("PmDvProcessAssembly", "assembly", "Product") + made("PmCompoundPart", "part", "Product") +
       bare("PmX", "other"));
  const struct {
    const char *parent, *child;
    bool isRelevant;
  } cases[] = {{"assembly", "assembly", true}, {"assembly", "part", false}, {"assembly", "gone", false},
               {"part", "assembly", false},    {"part", "part", true},      {"part", "gone", true},
               {"other", "assembly", true},    {"other", "gone", true}};
  for (const auto& c : cases)
    EXPECT_EQ(zelXmlIsRelevantParent(study, none, element(c.parent), ApiPmId(c.child)), c.isRelevant)
        << c.parent << " of " << c.child;
}
