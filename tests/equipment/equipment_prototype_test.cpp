#include "equipment/ZelXmlEquipmentPrototype.h"

#include "api/ApiLogLogger.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelVorPrototypeOccurrence.h"

using namespace document_test;

namespace {

std::string equipment(const std::string& id, const std::string& children) {
  return made("PmEquipmentPrototype", id, "EquipmentPrototype", listOf("children", children));
}
std::string occurrence(const std::string& type, const std::string& id, const std::string& holder) {
  return made(type, id, "Resource",
              field("name", id) + field("layout", "L" + id) + field("prototype", "tool") +
                  field("parentPrototype", holder));
}
const std::string tool = made("PmToolPrototype", "tool", "ToolPrototype");

class EquipmentPrototypeTest : public StudyTest {
 protected:
  ZelXmlEquipmentPrototype& prototype(std::string_view id) const {
    return dynamic_cast<ZelXmlEquipmentPrototype&>(*xmlNode(id));
  }
  ZelVorPrototypeOccurrence& occurs(ZelNode* node) const {
    return *ZelVorPrototypeOccurrence::queryZelVorPrototypeOccurrence(node);
  }
};

TEST_F(EquipmentPrototypeTest, OccurrencesAreMadeOfToolsAndEquipments) {
  build(equipment("E", "") + equipment("F", "") + tool + made("PmPartPrototype", "part", "PartPrototype") +
        part("A", "", ""));
  publish();
  const std::string before = objects();
  for (const char* id : {"part", "A", "unknown", ""}) {
    EXPECT_EQ(prototype("E").createOccurrence(ApiPmId(id)), nullptr) << id;
  }
  EXPECT_EQ(objects(), before) << "nothing was made";

  ZelNode* ofTool = prototype("E").createOccurrence(ApiPmId("tool"));
  ASSERT_NE(ofTool, nullptr);
  EXPECT_EQ(element("new1").xml(),
            bare("PmToolInstance", "new1",
                 "<name/><layout>new2</layout>" + familyOf("Resource") +
                     "<prototype>tool</prototype><parentPrototype>E</parentPrototype>"));
  EXPECT_EQ(element("E").xml(), equipment("E", "new1"));
  EXPECT_EQ(text("new2", "parent"), "NULL");
  EXPECT_EQ(parentOf("new1"), "E");
  EXPECT_EQ(updated(), "E new1");
  ApiPmId id;
  EXPECT_TRUE(occurs(ofTool).getPrototypeId(id) && id == ApiPmId("tool"));

  ZelNode* ofEquipment = prototype("E").createOccurrence(ApiPmId("F"));
  ASSERT_NE(ofEquipment, nullptr);
  EXPECT_EQ(element("new3").nodeName(), "PmEquipmentPrototypeOccurrence");
  ZelNodeList children;
  EXPECT_TRUE(collection("E")->getChildren(children));
  EXPECT_EQ(children, (ZelNodeList{ofTool, ofEquipment}));
  EXPECT_EQ(roots(), "A");

  // An occurrence is taken from the equipment that holds it.
  EXPECT_TRUE(prototype("F").addChild(ofTool));
  expectLists({{"E/children", "new3"}, {"F/children", "new1"}});
  EXPECT_EQ(text("new1", "parentPrototype"), "F");
  EXPECT_EQ(parentOf("new1"), "F");

  // What was made is an occurrence, too, for whoever opens the document.
  ASSERT_TRUE(wrapper->build(false));
  EXPECT_EQ(node("new1")->type(), ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE);
  EXPECT_EQ(node("new3")->type(), ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE);
}

TEST_F(EquipmentPrototypeTest, ACopyKeepsNamePlaceAndChildId) {
  build(equipment("E", "O P") + equipment("F", "") + tool + occurrence("PmToolInstance", "O", "E") +
        layout("LO", "O") + occurrence("PmEquipmentPrototypeOccurrence", "P", "E"));
  publish();
  const RTTran3D place({1, 2, 3}, {0.1, 0.2, 0.3});
  EXPECT_TRUE(occurs(node("O")).setLocation(place));
  EXPECT_TRUE(occurs(node("O")).setChildId(ApiPmPrototypeChildId("stable")));
  EXPECT_FALSE(occurs(node("P")).setLocation(place)) << "it has no layout";

  EXPECT_TRUE(wrapper->copyOccurrences(*node("E"), *node("F")));
  expectLists({{"E/children", "O P"}, {"F/children", "new1 new3"}});
  RTTran3D copied;
  ApiPmPrototypeChildId child;
  ApiPmId id;
  EXPECT_TRUE(occurs(node("new1")).getLocation(copied));
  EXPECT_TRUE(copied.isNear(place, 1e-6, 1e-6));
  EXPECT_TRUE(xmlNode("new1")->readAbsoluteLocation(copied));
  EXPECT_TRUE(copied.isNear(place, 1e-6, 1e-6));
  EXPECT_TRUE(occurs(node("new1")).getChildId(child) && child == ApiPmPrototypeChildId("stable"));
  EXPECT_FALSE(occurs(node("new3")).getChildId(child)) << "the original has none";
  EXPECT_TRUE(occurs(node("new3")).getPrototypeId(id) && id == ApiPmId("tool"));
  EXPECT_EQ(nameOf("new3"), "P");
  EXPECT_EQ(parentOf("new3"), "F");
  EXPECT_EQ(updated(), "new1 F new3");

  // The copies before one that cannot be made stay.
  build(equipment("E", "O A") + equipment("F", "") + tool + occurrence("PmToolInstance", "O", "E") +
        layout("LO", "O") + part("A", "", "-"));
  EXPECT_FALSE(wrapper->copyOccurrences(*node("E"), *node("F"))) << "A is no occurrence";
  EXPECT_EQ(list("F", "children").size(), std::string("new5").size());
  EXPECT_TRUE(wrapper->copyOccurrences(*node("E"), *node("tool"))) << "nothing to do";
}

TEST_F(EquipmentPrototypeTest, AnOccurrenceOfAnUpdateEntersItsEquipmentUnpublished) {
  build(equipment("E", "") + tool);
  publish();
  wrapper->setUpdateDocument(parse(dataOf(occurrence("PmToolInstance", "O", "E"))));
  ApiPmIdList gone;
  ApiPmIdList updatedIds;
  EXPECT_TRUE(wrapper->update(gone, updatedIds, false));
  EXPECT_EQ(list("E", "children"), "O");
  EXPECT_EQ(parentOf("O"), "E");
  EXPECT_EQ(updated(), "") << "an update is no edit";
  EXPECT_TRUE(node("O")->setName("renamed"));
  EXPECT_EQ(updated(), "O") << "edits are published again";
}

TEST_F(EquipmentPrototypeTest, WithoutAStableIdTheObjectsOwnIsTold) {
  build(equipment("E", "O") + made("PmEquipmentPrototypeOccurrence", "O", "Resource", "<cloneStableId/>"));
  std::vector<std::string> lines;
  ApiLogLogger::instance()->setSink(
      [&](std::string_view category, std::string_view, int, int level, std::string_view text) {
        lines.push_back(std::string(category) + std::to_string(level) + std::string(text));
      },
      ApiLogLogger::error);
  ApiPmPrototypeChildId child;
  EXPECT_TRUE(occurs(node("O")).getChildId(child));
  ApiLogLogger::instance()->setSink(nullptr);
  EXPECT_EQ(child, ApiPmPrototypeChildId("O"));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "VorIntegration    0Clone stable id is missing - using external id instead: O"}));
}

}  // namespace
