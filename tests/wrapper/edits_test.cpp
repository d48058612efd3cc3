#include "node/ZelXmlStudy.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelVorStudy.h"

using namespace document_test;

namespace {

// A > P, B; P at 1 in A at 10; S is a study that shows B by the shortcut K.
class EditsTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    build(part("A", "", item("P")) + part("B", "", "") + part("P", item("A"), "-") +
          layout("LA", "A", "NULL", item("LP"), 10, 10) + layout("LB", "B", "NULL", "", 4, 4) +
          layout("LP", "P", "LA", "", 1, 11) +
          "<MarvekStudy ExternalId=\"S\"><name>S</name><children><item>K</item></children>"
          "<info><item>I</item></info><NodeInfo><family>Study</family></NodeInfo></MarvekStudy>"
          "<PmShortcut ExternalId=\"K\"><name>B</name><parent>S</parent><linkExternalID>B</linkExternalID>"
          "<NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>"
          "<MarvekStudyInfo ExternalId=\"I\"><layout>LI</layout></MarvekStudyInfo>"
          "<PmStudyLayout ExternalId=\"LI\"><location><item>7</item><item>0</item><item>0</item></location>"
          "<rotation><item/><item/><item/></rotation></PmStudyLayout>");
  }
  RTTran3D at(double position) const { return RTTran3D({position, 0, 0}, {}); }
  ZelVorStudy* theStudy() const { return zelQuery<ZelVorStudy>(node("S")); }
};

TEST_F(EditsTest, AMovedChildKeepsItsPlaceAndStaysInStepEverywhere) {
  publish();
  ASSERT_TRUE(collection("B")->moveChild(node("P")));
  EXPECT_EQ(list("A", "children"), "");
  EXPECT_EQ(list("B", "children"), "P");
  EXPECT_EQ(list("P", "parents"), "B");
  EXPECT_EQ(list("LA", "children"), "");
  EXPECT_EQ(list("LB", "children"), "LP");
  EXPECT_EQ(document_test::at(element("LP"), "parent").text(), "LB");
  EXPECT_DOUBLE_EQ(x("LP", "location/item"), 7);
  EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), 11);
  EXPECT_EQ(parentOf("P"), "B");
  EXPECT_EQ(node("P")->getParent(), node("B"));
  EXPECT_EQ(updated(), "A B LA LB P LP");

  // Back to the root: it stands where it stood, and only the finder and both lists let go.
  ASSERT_TRUE(wrapper->addRootFromOtherParent(node("P")));
  EXPECT_EQ(parentOf("P"), "-");
  EXPECT_EQ(list("P", "parents"), "");
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "B", "P", "S"}));
  RTTran3D location;
  EXPECT_TRUE(physical("P")->getLocation(location) && location == at(11));
}

TEST_F(EditsTest, AFormerChildTakesItsOldParentWithoutACycleOfLayouts) {
  ASSERT_TRUE(collection("A")->createChild(ZEL_COMPOUND_PART, ApiPmId("N")));
  ASSERT_TRUE(wrapper->addRootFromOtherParent(node("N")));
  EXPECT_EQ(list("LA", "children"), "LP new1") << "left behind, and harmless so far";
  ASSERT_TRUE(collection("N")->moveChild(node("A")));
  EXPECT_EQ(list("LA", "children"), "LP");
  EXPECT_EQ(list("new1", "children"), "LA");
  for (const double place : {100.0, 200.0}) {
    RTTran3D location;
    ASSERT_TRUE(physical("A")->setLocation(at(place)));
    EXPECT_TRUE(physical("A")->getLocation(location) && location.isNear(at(place), 1e-6, 1e-6));
    EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), place + 1);
  }
}

TEST_F(EditsTest, NothingMovesUnderItselfOrBelow) {
  ASSERT_TRUE(collection("B")->moveChild(node("A")));
  const std::string before = root(study);
  publish();
  EXPECT_FALSE(collection("A")->moveChild(node("A")));
  EXPECT_FALSE(collection("A")->moveChild(node("B")));
  EXPECT_FALSE(collection("S")->moveChild(node("S")));
  EXPECT_FALSE(collection("A")->moveChild(nullptr));
  EXPECT_EQ(root(study), before);
  EXPECT_EQ(updated() + deleted(), "");
}

TEST_F(EditsTest, ListsThatDisagreeMakeNoCycleEither) {
  // Only A's list names B: going up from B finds nothing.
  build(part("A", "", item("B")) + part("B", "", "") + layout("LA", "A", "NULL", "", 0, 0) +
        layout("LB", "B", "NULL", "", 0, 0));
  wrapper->relevantParentFinder().removeRelevantParent(ApiPmId("B"));
  EXPECT_FALSE(collection("B")->moveChild(node("A")));
  EXPECT_EQ(list("B", "children"), "");
}

TEST_F(EditsTest, LocationsAreThoseOfParentStudyOrDocument) {
  RTTran3D location;
  EXPECT_TRUE(physical("P")->getLocation(location) && location == at(1));
  EXPECT_TRUE(physical("A")->getLocation(location) && location == at(10));
  EXPECT_TRUE(physical("B")->getLocation(location) && location == at(7));
  EXPECT_TRUE(physical("B")->getAbsoluteLocation(location) && location == at(4));
  EXPECT_TRUE(physical("S")->getLocation(location) && location == RTTran3D::unit);

  publish();
  ASSERT_TRUE(physical("A")->setLocation(at(20)));
  EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), 21) << "what stands below follows";
  ASSERT_TRUE(physical("P")->setLocation(at(-3)));
  EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), 17);
  ASSERT_TRUE(physical("B")->setLocation(at(8)));
  EXPECT_DOUBLE_EQ(x("LI", "location/item"), 8);
  EXPECT_DOUBLE_EQ(x("LB", "location/item"), 4) << "a place in the study is not the object's own";
  EXPECT_EQ(updated(), "LA LP LI");
}

TEST_F(EditsTest, NewObjectsArePublishedWholeAndPlaced) {
  publish();
  ZelNode* made = collection("A")->createChild(ZEL_COMPOUND_PART, ApiPmId("N"));
  ASSERT_TRUE(made);
  EXPECT_EQ(element("N").xml(),
            "<PmCompoundPart ExternalId=\"N\"><name/><parents><item>A</item></parents><children/>"
            "<layout>new1</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>");
  EXPECT_EQ(updated(), "A LA N new1");
  EXPECT_EQ(parentOf("N"), "A");
  EXPECT_DOUBLE_EQ(x("new1", "location/item"), -10) << "made at the origin of the study";

  // Refused: nothing is made, no layout either.
  const std::string before = root(study);
  for (const int type : {5, 6, 10000, -1, 0, 14, 13, 15, 7}) {
    EXPECT_EQ(collection("A")->createChild(static_cast<ZelNodeType>(type), ApiPmId("X")), nullptr) << type;
  }
  EXPECT_EQ(collection("A")->createChild(ZEL_PART_INSTANCE, "1 bad name", ApiPmId("X")), nullptr);
  EXPECT_EQ(collection("A")->createChild(ZEL_PART_INSTANCE, ApiPmId()), nullptr);
  EXPECT_EQ(wrapper->createRoot(ZEL_STUDY, ApiPmId("X")), nullptr);
  EXPECT_EQ(root(study), before);
  EXPECT_EQ(node("X"), nullptr);

  // A child that its parent cannot take exists all the same.
  ASSERT_TRUE(collection("A")->createChild(ZEL_MATERIAL_FLOW, ApiPmId("M")));
  EXPECT_TRUE(exists("M"));
  ASSERT_TRUE(wrapper->createRoot(ZEL_RESOURCE_INSTANCE, "PmToolInstance", ApiPmId("T"), {}));
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "B", "S", "T"}));
}

TEST_F(EditsTest, DeletionGoesTheWayOfTheParents) {
  publish();
  ApiPmId id("P");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_EQ(deleted(), "LP P");
  EXPECT_EQ(updated(), "A");
  EXPECT_FALSE(exists("P") || exists("LP"));
  EXPECT_EQ(parentOf("P"), "-");
  EXPECT_EQ(node("P"), nullptr);
  EXPECT_FALSE(wrapper->deleteNode(id));

  // A root that a study shows: the shortcut goes with its objects, the layout of a root stays.
  id = ApiPmId("B");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_EQ(deleted(), "LP P K I LI B");
  EXPECT_EQ(list("S", "children") + list("S", "info"), "");
  EXPECT_TRUE(exists("LB"));
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "S"}));
  EXPECT_FALSE(wrapper->deleteNodesList({}));
  EXPECT_FALSE(wrapper->deleteNodesList({ApiPmId("A"), ApiPmId("none"), ApiPmId("S")}));
  EXPECT_EQ(roots(), std::vector<std::string>{"S"});
}

TEST_F(EditsTest, ASharedObjectLosesOnlyTheParentThatCounts) {
  build(part("A", "", item("P")) + part("B", "", item("P")) + part("C", "", item("P")) +
        part("P", items({"A", "B", "C"}), "-") + layout("LA", "A", "NULL", item("LP"), 0, 0) +
        layout("LB", "B", "NULL", item("LP"), 0, 0) + layout("LP", "P", "LB", "", 0, 0));
  ASSERT_TRUE(wrapper->removeSharing());
  EXPECT_EQ(list("P", "parents"), "A");
  EXPECT_EQ(list("A", "children"), "P");
  EXPECT_EQ(list("B", "children") + list("C", "children") + list("LB", "children"), "");
  EXPECT_EQ(document_test::at(element("LP"), "parent").text(), "");

  build(part("A", "", item("P")) + part("B", "", item("P")) + part("P", items({"A", "B"}), "-"));
  publish();
  ApiPmId id("P");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_TRUE(exists("P"));
  EXPECT_EQ(list("P", "parents"), "B");
  EXPECT_EQ(deleted(), "");
  EXPECT_EQ(node("P"), nullptr);
}

TEST_F(EditsTest, AnObjectWithAParentThatDoesNotCountIsKept) {
  build(part("P", item("gone"), "-") + layout("LP", "P", "NULL", "", 0, 0));
  ApiPmId id("P");
  EXPECT_FALSE(wrapper->deleteNode(id));
  EXPECT_TRUE(exists("P"));
  EXPECT_EQ(roots(), std::vector<std::string>{"P"});
  session().deleteMode = 1;
  EXPECT_TRUE(wrapper->deleteNode(id));
  EXPECT_FALSE(exists("P") || exists("LP"));
}

TEST_F(EditsTest, AProcessAssemblyLeavesNoPointerAmongTheRoots) {
  build(
      "<PmDvProcessAssembly ExternalId=\"Q\"><children><item>R</item></children><NodeInfo>"
      "<family>Product</family></NodeInfo></PmDvProcessAssembly><PmDvProcessAssembly ExternalId=\"R\">"
      "<NodeInfo><family>Product</family></NodeInfo></PmDvProcessAssembly>");
  ApiPmId id("R");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_EQ(list("Q", "children"), "");
  id = ApiPmId("Q");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_TRUE(roots().empty());
}

TEST_F(EditsTest, AStudyShowsObjectsByShortcuts) {
  publish();
  EXPECT_TRUE(theStudy()->containsNode(node("B")) && theStudy()->hasShortcutChild(node("B")));
  ASSERT_TRUE(collection("S")->moveChild(node("P")));
  EXPECT_EQ(list("S", "children"), "K new1");
  EXPECT_EQ(list("S", "info"), "I new2");
  EXPECT_EQ(list("A", "children") + list("P", "parents"), "");
  EXPECT_EQ(
      element("new1").xml(),
      "<PmShortcut ExternalId=\"new1\"><name>P</name><parent>S</parent><linkExternalID>P</linkExternalID>"
      "<NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>");
  EXPECT_EQ(updated(), "A P new3 new2 S new1");
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "B", "P", "S"}));
  ZelNodeList shown;
  ASSERT_TRUE(theStudy()->getChildrenOfType(ZEL_PART_INSTANCE, shown));
  EXPECT_EQ(shown.entries(), 1u);
  EXPECT_EQ(shown[0], node("P"));

  // Into a compound: the shortcut goes first.
  ASSERT_TRUE(collection("A")->moveChild(node("P")));
  EXPECT_EQ(list("S", "children"), "K");
  EXPECT_FALSE(exists("new1") || exists("new2") || exists("new3"));
  EXPECT_EQ(deleted(), "new1 new2 new3");
  ASSERT_TRUE(theStudy()->removeNodeShortcut(ApiPmId("B")));
  EXPECT_EQ(list("S", "info"), "");
  EXPECT_TRUE(node("B"));
  EXPECT_FALSE(collection("S")->removeChild(ApiPmId("B"))) << "no shortcut leads to it any more";
}

TEST_F(EditsTest, RefreshesFollowTheDataStoreInSilence) {
  publish();
  // The study lets go, then the root goes with its layout; the shortcut object stays.
  ASSERT_TRUE(wrapper->refreshDeleteRoot(node("B")));
  EXPECT_EQ(list("S", "children") + list("S", "info"), "");
  EXPECT_FALSE(exists("B") || exists("LB") || exists("I") || exists("LI"));
  EXPECT_TRUE(exists("K"));
  ApiPmId shortcut;
  EXPECT_FALSE(wrapper->findShortcut(ApiPmId("B"), shortcut));
  EXPECT_FALSE(wrapper->refreshDeleteRoot(node("P"))) << "no root";

  ASSERT_TRUE(wrapper->refreshSetChildAsRoot(node("P"), ApiPmId("outside"), ApiPmId("Loutside"), at(10)));
  EXPECT_DOUBLE_EQ(x("LP", "location/item"), 1);
  EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), 11);
  EXPECT_EQ(list("LA", "children"), "");
  EXPECT_EQ(list("P", "parents"), "outside");
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "P", "S"}));
  EXPECT_EQ(updated() + deleted(), "");
}

TEST_F(EditsTest, LocalEditsPublishNothing) {
  publish();
  ASSERT_TRUE(zelQuery<ZelVorCollection>(node("B"))->moveChildLocally(node("P")));
  EXPECT_DOUBLE_EQ(x("LP", "location/item"), 1) << "the relative placement stays";
  EXPECT_DOUBLE_EQ(x("LP", "NodeInfo/absoluteLocation/x"), 5);
  EXPECT_EQ(list("LB", "children"), "LP");
  ASSERT_TRUE(zelQuery<ZelVorCollection>(node("B"))->removeChildLocally(ApiPmId("P")));
  EXPECT_FALSE(exists("P") || exists("LP"));
  EXPECT_EQ(list("LB", "children") + list("B", "children"), "");
  EXPECT_FALSE(zelQuery<ZelVorCollection>(node("S"))->moveChildLocally(node("A")));
  EXPECT_EQ(updated() + deleted(), "");
}

TEST_F(EditsTest, RootsTakeTheOrderAskedFor) {
  wrapper->reorderRoots({ApiPmId("S"), ApiPmId("P"), ApiPmId("A")});
  ApiPmIdList ids;
  wrapper->getRoots(ids);
  EXPECT_EQ(ids, (ApiPmIdList{ApiPmId("S"), ApiPmId("A"), ApiPmId("B")}));
  wrapper->reorderRoots({});
  ApiPmIdList same;
  wrapper->getRoots(same);
  EXPECT_EQ(same, ids);
}

TEST_F(EditsTest, PrototypesAreNeitherRootsNorPublished) {
  publish();
  ApiPmPrototypeData data(ApiPmId(), ApiPmTypeData("PmEquipmentPrototype", "EquipmentPrototype"));
  data.weight = 2.5;
  ApiPmId id;
  ASSERT_TRUE(wrapper->createNewPrototype(data, {}, id));
  EXPECT_EQ(
      element(id.text()).xml(),
      "<PmEquipmentPrototype ExternalId=\"new1\"><NodeInfo><family>EquipmentPrototype</family></NodeInfo>"
      "<children/><weight>2.500000</weight></PmEquipmentPrototype>");
  EXPECT_EQ(node("new1")->type(), ZEL_EQUIPMENT_PROTOTYPE);
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "B", "S"}));
  EXPECT_EQ(updated(), "");
  EXPECT_FALSE(wrapper->addExistingPrototype(data)) << "without an id";
  EXPECT_TRUE(wrapper->copyOccurrences(*node("new1"), *node("new1"))) << "there is nothing to copy";
  EXPECT_FALSE(wrapper->copyOccurrences(*node("A"), *node("new1"))) << "its children are no occurrences";
}

TEST_F(EditsTest, TheExportKnowsChangedAndDeletedObjects) {
  bool answer = true;
  EXPECT_FALSE(wrapper->isNodeInExportedNodes(ApiPmId("A"), answer));
  EXPECT_TRUE(answer) << "untouched without an OUT document";
  publish();
  ASSERT_TRUE(node("A")->setName("renamed"));
  ApiPmId id("P");
  ASSERT_TRUE(wrapper->deleteNode(id));
  EXPECT_TRUE(wrapper->isNodeInExportedNodes(ApiPmId("A"), answer) && answer);
  EXPECT_TRUE(wrapper->isNodeInExportDeletedNodes(ApiPmId("P"), answer) && answer);
  EXPECT_TRUE(wrapper->isNodeInExportedNodes(ApiPmId("P"), answer) && !answer);
}

}  // namespace
