#include <limits>
#include <map>
#include <set>
#include <sstream>

#include "Folder.h"
#include "api/ApiVorTools.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelVorNode.h"

using namespace document_test;

namespace {

class BuildTest : public StudyTest {};

// One element per line of the class decision; the id is the expected type.
TEST_F(BuildTest, DecidesTheClassByFamilyNameShapeAndClassType) {
  struct Case {
    const char *name, *family, *fields;
    int type;  // -1 for no node
  };
  const Case cases[] = {
      {"MarvekStudy", "Study", "", 0},
      {"PmDvProcessAssembly", "Product", "", 14},
      {"PmDvProcessAssembly", "Product", "<children/>", 14},
      {"PmCompoundPart", "Product", "<children/><threeDRep/>", 3},
      {"PmPartInstance", "Product", "<threeDRep/>", 5},
      {"Anything", "Product", "", 1},
      {"DeviceGroup", "Resource", "<children/>", 40},
      {"DeviceGroup", "Resource", "", 2},
      {"PmEquipmentInstance", "Resource", "<children/>", 112},
      {"PmCompoundResource", "Resource", "<children/>", 4},
      {"PmEquipmentPrototypeOccurrence", "Resource", "<threeDRep/>", 115},
      {"PmToolInstance", "Resource", "<parentPrototype>known</parentPrototype>", 115},
      {"PmToolInstance", "Resource", "<parentPrototype>NULL</parentPrototype>", 2},
      {"PmToolInstance", "Resource", "<parentPrototype>unknown</parentPrototype><threeDRep/>", 6},
      {"PmToolInstance", "Resource", "<prototype>light</prototype>", 35},
      {"PmToolInstance", "Resource", "<masterObj>property</masterObj>", 36},
      {"PmPartPrototype", "PartPrototype", "", 7},
      {"PmToolPrototype", "ToolPrototype", "", 8},
      {"PmEquipmentPrototype", "EquipmentPrototype", "", 113},
      {"PmPartPrototypeUsage", "PartPrototypeUsage", "", 11},
      {"PmToolPrototypeUsage", "ToolPrototypeUsage", "<uses>equipment</uses>", 114},
      {"PmToolPrototypeUsage", "ToolPrototypeUsage", "<uses>light</uses>", 12},
      {"Label", "Label", "", 10},
      {"PmOperation", "Operation", "", 15},
      {"PmFlow", "PmFlow", "", 13},
      {"PLCProgram", "PLCProgram", "", 37},
      {"PmMaterialFlow", "PmMaterialFlow", "", 85},
      {"PmVariantFilterLibrary", "any", "", 145},
      {"PmVariantFilter", "any", "", 146},
      {"PmVariantSet", "any", "", 147},
      {"PmLayout", "PmLayout", "", -1},
      {"NoSuchClass", "any", "", -1},
      {"PmShortcut", "Shortcut", "", -1},
  };
  std::string text;
  int index = 0;
  for (const Case& test : cases) text += made(test.name, std::to_string(index++), test.family, test.fields);
  // Behind their users, so that nothing depends on the order of objects.
  text += made("LightSensor", "light", "ToolPrototype") +
          made("PropertySensor", "property", "ToolPrototype") +
          made("PmEquipmentPrototype", "equipment", "EquipmentPrototype") +
          made("PmPartPrototype", "known", "PartPrototype") + made("PmToolInstance", "master", "Resource") +
          made("PmToolInstance", "user", "Resource", "<masterObj>master</masterObj>");
  build(text);
  index = 0;
  for (const Case& test : cases) {
    const ZelNode* made = node(std::to_string(index++));
    EXPECT_EQ(made ? made->type() : -1, test.type) << test.name << ' ' << test.family << ' ' << test.fields;
  }
  EXPECT_EQ(node("light")->type(), 9);
  EXPECT_EQ(node("property")->type(), 96);
  EXPECT_EQ(node("master")->type(), 115) << "an instance names it by masterObj";
  EXPECT_EQ(wrapper->studyId(), "0");
}

TEST_F(BuildTest, ServesTheInterfacesOfEachClassOnOneObject) {
  const std::map<int, std::set<int>> expected = {
      {0, {1, 2, 19, 29, 30}},
      {1, {1, 13, 18, 19, 106, 133}},
      {3, {1, 2, 15, 18, 19, 22, 30, 103, 133}},
      {4, {1, 2, 16, 18, 19, 23, 30, 103, 133}},
      {5, {1, 18, 19, 25}},
      {6, {1, 18, 19, 25, 27, 28}},
      {10, {1, 11, 19}},
      {14, {1, 2, 18, 19, 26}},
      {145, {2, 19, 30}},
  };
  openText(files_test::contentOf(ZELXML_SOURCE_DIR "/examples/cell/cell.xml"));
  ASSERT_TRUE(wrapper->read());
  ZelNodeList nodes;
  wrapper->getAllNodes(nodes);
  std::set<int> types;
  for (ZelNode* each : nodes) {
    types.insert(each->type());
    std::set<int> served;
    ApiPmId id;
    ASSERT_TRUE(each->getExternalId(id));
    for (int number = 0; number < 256; ++number) {
      ZelNode* face = each->queryInterface(static_cast<ZelNode::InterfaceType>(number));
      if (!face) continue;
      served.insert(number);
      ApiPmId other;
      EXPECT_TRUE(face->getExternalId(other) && other == id && face->type() == each->type());
      EXPECT_EQ(zelXmlNodeOf(face), zelXmlNodeOf(each));
    }
    const auto found = expected.find(each->type());
    if (found != expected.end()) {
      EXPECT_EQ(served, found->second) << "type " << each->type();
    }
  }
  EXPECT_EQ(types.size(), 38u) << "the example has every class of objects, and nine of inner nodes";
  EXPECT_EQ(wrapper->nodesNum(), static_cast<int>(nodes.entries()));

  // A second build leaves one node per object.
  ASSERT_TRUE(wrapper->build(true));
  EXPECT_EQ(wrapper->nodesNum(), static_cast<int>(nodes.entries()));
}

TEST_F(BuildTest, TheFirstParentCountsAndALaterOneIsReported) {
  build(part("A", "", "S Q") + part("B", "", "S A") + part("S", "A B", "-") +
        made("PmDvProcessAssembly", "Q", "Product", "<name>Q</name>" + listOf("children", "R S")) +
        made("PmDvProcessAssembly", "R", "Product"));
  EXPECT_EQ(parentsOf({"S", "A", "Q", "R"}), "A B - Q") << "a compound is no parent of a process assembly";
  EXPECT_EQ(roots(), "B Q");
  // The second parent's name goes out with the child's; a process assembly's claim is one more.
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].code, "ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED");
  EXPECT_EQ(messages[0].severity, 3);
  EXPECT_EQ(joined(messages[0].texts), "S B");
  EXPECT_EQ(joined(messages[1].texts), "S Q");
  // Only the parent that counts shows the child.
  ZelNodeList children;
  ApiPmIdList ids;
  EXPECT_TRUE(collection("B")->getChildren(children) && collection("B")->getChildrenIds(ids));
  EXPECT_EQ(children.entries(), 1u);
  EXPECT_EQ(ids.entries(), 2u);
}

TEST_F(BuildTest, AShortcutIsFoundFromItsTargetAlsoAheadOfIt) {
  build(shortcutTo("K", "P", "") + part("P", "", "-"));
  ApiPmId shortcut;
  EXPECT_TRUE(wrapper->findShortcut(ApiPmId("P"), shortcut));
  EXPECT_EQ(shortcut.text(), "K");
  EXPECT_EQ(node("K"), nullptr);
}

TEST_F(BuildTest, OddDocumentsLoadAsFarAsTheyGo) {
  // A cycle, an object without id, a compound without id that has children, a family outside an object.
  build(part("A", "B", "B") + part("B", "A", "A") + partWithoutId +
        "<PmCompoundPart><children><item>B</item></children>" + familyOf("Product") + "</PmCompoundPart>");
  EXPECT_EQ(wrapper->nodesNum(), 2);
  EXPECT_EQ(roots(), "");
  for (const char* text : {"<Data/>", "<Data><Objects/></Data>", "<Other/>"}) {
    openText(text);
    EXPECT_TRUE(wrapper->build(true)) << text;
    EXPECT_EQ(wrapper->nodesNum(), 0) << text;
  }
  session().setImportedDocumentAndDocRef({}, {});
  EXPECT_TRUE(wrapper->build(true)) << "without a document";
  std::ostringstream saved;
  EXPECT_FALSE(wrapper->write(saved));
}

TEST_F(BuildTest, TheStudyCarriesTheSessionsData) {
  open("");
  session().userName = "planner <1>";
  session().projectId = ApiPmId("project");
  session().variantFilter = -7;
  std::ostringstream saved;
  ASSERT_TRUE(wrapper->write(saved));
  EXPECT_EQ(at(study, "Data/SessionMgrData").xml(),
            "<SessionMgrData>In this section we save the private data of SessionManager"
            "<UserName>planner &lt;1></UserName><ProjectId>project</ProjectId>"
            "<ProjectInternalId>0</ProjectInternalId><RootNodeId/><VariantFilter>-7</VariantFilter>"
            "<ProjectName/></SessionMgrData>");
  session().userName = "other";
  session().projectId = {};
  session().variantFilter = 0;
  session().rootNodeIdByte = 1;
  openText(saved.str());
  ASSERT_TRUE(wrapper->read());
  EXPECT_EQ(session().userName, "planner <1>");
  EXPECT_EQ(session().projectId.text(), "project");
  EXPECT_EQ(session().variantFilter, -7);
  EXPECT_EQ(session().rootNodeIdByte, 0);
}

TEST_F(BuildTest, ANumberBeyond32BitsIsNone) {
  const auto numbered = [](const std::string& id, const std::string& number) {
    return bare("PmPartInstance", id, field("NodeInfo", field("family", "Product") + field("Id", number)));
  };
  ApiVorToolsIdConverter::the().clear();
  build(numbered("A", "2147483647") + numbered("B", "2147483648") + numbered("C", "99999999999999999999") +
        numbered("D", "7") + numbered("E", "4294967303") + numbered("F", "-2147483649"));
  const auto idOf = [](std::int32_t number) {
    ApiPmId id("none");
    ApiVorToolsIdConverter::the().apiPmInternalIdToApiPmId(ApiPmInternalId(number), id);
    return id.asString();
  };
  EXPECT_EQ(idOf(2147483647) + idOf(7) + idOf(-1) + idOf(std::numeric_limits<std::int32_t>::min()),
            "ADnonenone");
  for (const char* id : {"B", "C", "E", "F"}) {
    ApiPmInternalId number(5);
    EXPECT_FALSE(zelQuery<ZelVorNode>(node(id))->getInternalId(number)) << id;
    EXPECT_EQ(number.value, 5) << id;
  }
  ApiVorToolsIdConverter::the().clear();
}

TEST_F(BuildTest, ARegisteredIdKeepsItsFormerNodeAliveUntilTheNextBuild) {
  build(part("A", "", "-") + layout("LA", "A"));
  ZelNode* former = node("A");
  ZelNode* later = wrapper->createRoot(ZEL_PART_INSTANCE, ApiPmId("A"));
  ASSERT_TRUE(later);
  EXPECT_EQ(node("A"), later);
  EXPECT_EQ(wrapper->nodesNum(), 1);
  RWClassicWString name;
  EXPECT_TRUE(former->getName(name) && name == "A");
  EXPECT_EQ(roots(), "A");
}

}  // namespace
