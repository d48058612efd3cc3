#include <limits>
#include <sstream>

#include "api/ApiLogLogger.h"
#include "node/ZelXmlStudy.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorPrototypeOccurrence.h"
#include "zel/ZelVorStudy.h"

using namespace document_test;

namespace {

// A > P, B; P at 1 in A at 10; S is a study that shows B by the shortcut K.
class EditsTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    build(part("A", "", "P") + part("B", "", "") + part("P", "A", "-") +
          layout("LA", "A", "NULL", "LP", 10, 10) + layout("LB", "B", "NULL", "", 4, 4) +
          layout("LP", "P", "LA", "", 1, 11) + studyOf("S", "K", "I") + shortcutTo("K", "B", "S") +
          infoWith("I", "LI") +
          bare("PmStudyLayout", "LI",
               listOf("location", "7 0 0") + field("rotation", "<item/><item/><item/>")));
  }
  ZelVorStudy* theStudy() const { return zelQuery<ZelVorStudy>(node("S")); }
};

TEST_F(EditsTest, AMovedChildKeepsItsPlaceAndStaysInStepEverywhere) {
  publish();
  ASSERT_TRUE(collection("B")->moveChild(node("P")));
  expectLists({{"A/children", ""},
               {"B/children", "P"},
               {"P/parents", "B"},
               {"LA/children", ""},
               {"LB/children", "LP"}});
  EXPECT_EQ(text("LP", "parent"), "LB");
  EXPECT_DOUBLE_EQ(relativeX("LP"), 7);
  EXPECT_DOUBLE_EQ(absoluteX("LP"), 11);
  EXPECT_EQ(parentOf("P"), "B");
  EXPECT_EQ(node("P")->getParent(), node("B"));
  EXPECT_EQ(updated(), "A B LA LB P LP");

  // Back to the root: it stands where it stood, and only the finder and both lists let go.
  ASSERT_TRUE(wrapper->addRootFromOtherParent(node("P")));
  EXPECT_EQ(parentOf("P"), "-");
  EXPECT_EQ(list("P", "parents"), "");
  EXPECT_EQ(roots(), "A B P S");
  EXPECT_EQ(placeOf("P"), along(11));
}

TEST_F(EditsTest, AFormerChildTakesItsOldParentWithoutACycleOfLayouts) {
  ASSERT_TRUE(collection("A")->createChild(ZEL_COMPOUND_PART, ApiPmId("N")));
  ASSERT_TRUE(wrapper->addRootFromOtherParent(node("N")));
  EXPECT_EQ(list("LA", "children"), "LP new1") << "left behind, and harmless so far";
  ASSERT_TRUE(collection("N")->moveChild(node("A")));
  EXPECT_EQ(list("LA", "children"), "LP");
  EXPECT_EQ(list("new1", "children"), "LA");
  for (const double place : {100.0, 200.0}) {
    ASSERT_TRUE(physical("A")->setLocation(along(place)));
    EXPECT_TRUE(placeOf("A").isNear(along(place), 1e-6, 1e-6));
    EXPECT_DOUBLE_EQ(absoluteX("LP"), place + 1);
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
  build(part("A", "", "B") + part("B", "", "") + layout("LA", "A") + layout("LB", "B"));
  wrapper->relevantParentFinder().removeRelevantParent(ApiPmId("B"));
  EXPECT_FALSE(collection("B")->moveChild(node("A")));
  EXPECT_EQ(list("B", "children"), "");
  // Only the finder names A as the parent of B: no list below A does.
  build(part("A", "", "") + part("B", "A", "") + layout("LA", "A") + layout("LB", "B"));
  wrapper->setRelevantParent(ApiPmId("B"), ApiPmId("A"));
  EXPECT_FALSE(collection("B")->moveChild(node("A")));
  EXPECT_EQ(list("B", "children"), "");
}

TEST_F(EditsTest, LocationsAreThoseOfParentStudyOrDocument) {
  EXPECT_EQ(placeOf("P"), along(1));
  EXPECT_EQ(placeOf("A"), along(10));
  EXPECT_EQ(placeOf("B"), along(7));
  EXPECT_EQ(placeOf("S"), RTTran3D::unit);
  RTTran3D inStudy;
  EXPECT_TRUE(physical("B")->getAbsoluteLocation(inStudy) && inStudy == along(4));

  publish();
  ASSERT_TRUE(physical("A")->setLocation(along(20)));
  EXPECT_DOUBLE_EQ(absoluteX("LP"), 21) << "what stands below follows";
  ASSERT_TRUE(physical("P")->setLocation(along(-3)));
  EXPECT_DOUBLE_EQ(absoluteX("LP"), 17);
  ASSERT_TRUE(physical("B")->setLocation(along(8)));
  EXPECT_DOUBLE_EQ(relativeX("LI"), 8);
  EXPECT_DOUBLE_EQ(relativeX("LB"), 4) << "a place in the study is not the object's own";
  EXPECT_EQ(updated(), "LA LP LI");
}

TEST_F(EditsTest, NewObjectsArePublishedWholeAndPlaced) {
  publish();
  ASSERT_TRUE(collection("A")->createChild(ZEL_COMPOUND_PART, ApiPmId("N")));
  EXPECT_EQ(element("N").xml(),
            made("PmCompoundPart", "N", "Product",
                 "<name/>" + listOf("parents", "A") + "<children/><layout>new1</layout>"));
  EXPECT_EQ(updated(), "A LA N new1");
  EXPECT_EQ(parentOf("N"), "A");
  EXPECT_DOUBLE_EQ(relativeX("new1"), -10) << "made at the origin of the study";

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
  EXPECT_EQ(roots(), "A B S T");
}

TEST_F(EditsTest, DeletionGoesTheWayOfTheParents) {
  publish();
  ASSERT_TRUE(remove("P"));
  EXPECT_EQ(deleted(), "LP P");
  EXPECT_EQ(updated(), "A");
  EXPECT_FALSE(exists("P") || exists("LP"));
  EXPECT_EQ(parentOf("P"), "-");
  EXPECT_EQ(node("P"), nullptr);
  EXPECT_FALSE(remove("P"));

  // A root that a study shows: the shortcut goes with its objects, the layout of a root stays.
  ASSERT_TRUE(remove("B"));
  EXPECT_EQ(deleted(), "LP P K I LI B");
  expectLists({{"S/children", ""}, {"S/info", ""}});
  EXPECT_TRUE(exists("LB"));
  EXPECT_EQ(roots(), "A S");
  EXPECT_FALSE(wrapper->deleteNodesList({}));
  EXPECT_FALSE(wrapper->deleteNodesList({ApiPmId("A"), ApiPmId("none"), ApiPmId("S")}));
  EXPECT_EQ(roots(), "S");
}

TEST_F(EditsTest, ASharedObjectLosesOnlyTheParentThatCounts) {
  build(part("A", "", "P") + part("B", "", "P") + part("C", "", "P") + part("P", "A B C", "-") +
        layout("LA", "A", "NULL", "LP") + layout("LB", "B", "NULL", "LP") + layout("LP", "P", "LB"));
  ASSERT_TRUE(wrapper->removeSharing());
  expectLists(
      {{"P/parents", "A"}, {"A/children", "P"}, {"B/children", ""}, {"C/children", ""}, {"LB/children", ""}});
  EXPECT_EQ(text("LP", "parent"), "");

  build(part("A", "", "P") + part("B", "", "P") + part("P", "A B", "-"));
  publish();
  ASSERT_TRUE(remove("P"));
  EXPECT_TRUE(exists("P"));
  EXPECT_EQ(list("P", "parents"), "B");
  EXPECT_EQ(deleted(), "");
  EXPECT_EQ(node("P"), nullptr);
}

TEST_F(EditsTest, AnObjectWithAParentThatDoesNotCountIsKept) {
  build(part("P", "gone", "-") + layout("LP", "P"));
  EXPECT_FALSE(remove("P"));
  EXPECT_TRUE(exists("P"));
  EXPECT_NE(node("P"), nullptr);
  EXPECT_EQ(roots(), "") << "it leaves the roots all the same";
  session().deleteMode = 1;
  EXPECT_TRUE(remove("P"));
  EXPECT_FALSE(exists("P") || exists("LP"));
}

TEST_F(EditsTest, AProcessAssemblyLeavesNoPointerAmongTheRoots) {
  build(made("PmDvProcessAssembly", "Q", "Product", listOf("children", "R")) +
        made("PmDvProcessAssembly", "R", "Product"));
  ASSERT_TRUE(remove("R"));
  EXPECT_EQ(list("Q", "children"), "");
  ASSERT_TRUE(remove("Q"));
  EXPECT_EQ(roots(), "");
}

TEST_F(EditsTest, AStudyShowsObjectsByShortcuts) {
  publish();
  EXPECT_TRUE(theStudy()->containsNode(node("B")) && theStudy()->hasShortcutChild(node("B")));
  ASSERT_TRUE(collection("S")->moveChild(node("P")));
  expectLists({{"S/children", "K new1"}, {"S/info", "I new2"}, {"A/children", ""}, {"P/parents", ""}});
  EXPECT_EQ(element("new1").xml(),
            made("PmShortcut", "new1", "Shortcut",
                 "<name>P</name><parent>S</parent><linkExternalID>P</linkExternalID>"));
  EXPECT_EQ(updated(), "A P new3 new2 S new1");
  EXPECT_EQ(roots(), "A B P S");
  ZelNodeList shown;
  ASSERT_TRUE(theStudy()->getChildrenOfType(ZEL_PART_INSTANCE, shown));
  EXPECT_EQ(shown, ZelNodeList{node("P")});

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

  ASSERT_TRUE(wrapper->refreshSetChildAsRoot(node("P"), ApiPmId("outside"), ApiPmId("Loutside"), along(10)));
  EXPECT_DOUBLE_EQ(relativeX("LP"), 1);
  EXPECT_DOUBLE_EQ(absoluteX("LP"), 11);
  expectLists({{"LA/children", ""}, {"P/parents", "outside"}});
  EXPECT_EQ(roots(), "A P S");
  EXPECT_EQ(updated() + deleted(), "");
}

TEST_F(EditsTest, LocalEditsPublishNothing) {
  publish();
  ASSERT_TRUE(zelQuery<ZelVorCollection>(node("B"))->moveChildLocally(node("P")));
  EXPECT_DOUBLE_EQ(relativeX("LP"), 1) << "the relative placement stays";
  EXPECT_DOUBLE_EQ(absoluteX("LP"), 5);
  EXPECT_EQ(list("LB", "children"), "LP");
  ASSERT_TRUE(zelQuery<ZelVorCollection>(node("B"))->removeChildLocally(ApiPmId("P")));
  EXPECT_FALSE(exists("P") || exists("LP"));
  EXPECT_EQ(list("LB", "children") + list("B", "children"), "");
  EXPECT_FALSE(zelQuery<ZelVorCollection>(node("S"))->moveChildLocally(node("A")));
  EXPECT_EQ(updated() + deleted(), "");
}

TEST_F(EditsTest, AFailingStepEndsAnEdit) {
  // X has no layout that could leave first.
  build(part("A", "", "X") + part("X", "A", "-") + layout("LA", "A"));
  EXPECT_FALSE(zelQuery<ZelVorCollection>(node("A"))->removeChildLocally(ApiPmId("X")));
  EXPECT_NE(node("X"), nullptr);
  EXPECT_EQ(list("A", "children"), "X");

  // N, a former child of A, still has its layout below that of A, and cannot be placed without it.
  build(part("A", "", "") + layout("LA", "A"));
  ASSERT_TRUE(collection("A")->createChild(ZEL_COMPOUND_PART, ApiPmId("N")));
  ASSERT_TRUE(collection("N")->createChild(ZEL_COMPOUND_PART, ApiPmId("M")));
  ASSERT_TRUE(wrapper->addRootFromOtherParent(node("N")));
  ASSERT_TRUE(zelXmlRemoveNamedChild(element(text("N", "layout")), "NodeInfo"));
  EXPECT_FALSE(collection("M")->moveChild(node("A")));
  EXPECT_EQ(list(text("M", "layout"), "children"), "");
}

TEST_F(EditsTest, AFailedLocalMoveLeavesARootAmongTheRoots) {
  // Each lacks what a step of the move needs, a later one from case to case.
  const std::string placed = field("parents") + field("layout", "LX");
  for (const std::string& fields : {field("parents"), field("layout", "LX"), placed}) {
    build(part("A", "", "") + layout("LA", "A") + made("PmPartInstance", "X", "Product", fields) +
          bare("PmLayout", "LX", fields == placed ? "" : field("parent", "NULL")));
    EXPECT_FALSE(zelQuery<ZelVorCollection>(node("A"))->moveChildLocally(node("X"))) << fields;
    EXPECT_EQ(roots(), "A X") << fields;
  }
}

// Whatever would take a placement out of the finite numbers is refused, and nothing is changed.
TEST_F(EditsTest, PlacementsStayFinite) {
  constexpr double huge = std::numeric_limits<double>::max();
  publish();
  ASSERT_TRUE(zelQuery<ZelVorLabelsContainer>(node("A"))->addLabel(ApiPmId("N"), {}));
  ASSERT_TRUE(wrapper->createRoot(ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, ApiPmId("O")));
  ASSERT_TRUE(physical("P")->setLocation(along(1e308)));
  ASSERT_TRUE(physical("B")->setLocation(along(huge))) << "in the study";
  ASSERT_TRUE(theStudy()->removeNodeShortcut(ApiPmId("B")));
  ASSERT_TRUE(physical("B")->setLocation(along(-1e308)));
  const auto local = [this](const char* parent, const char* child) {
    return zelQuery<ZelVorCollection>(node(parent))->moveChildLocally(node(child));
  };
  ASSERT_TRUE(wrapper->createRoot(ZEL_COMPOUND_PART, ApiPmId("C")));
  ASSERT_TRUE(physical("C")->setLocation(along(1e308)));
  ASSERT_TRUE(collection("S")->moveChild(node("C")));
  const std::string before = root(study), published = root(stream);

  for (const double bad : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()}) {
    for (int at = 0; at < 6; ++at) {
      double numbers[6] = {1, 2, 3, 0.5, 0.5, 0.5};
      numbers[at] = bad;
      const RTTran3D place({numbers[0], numbers[1], numbers[2]}, {numbers[3], numbers[4], numbers[5]});
      for (const char* id : {"A", "P", "C", "N"}) EXPECT_FALSE(physical(id)->setLocation(place)) << id << at;
      EXPECT_FALSE(zelQuery<ZelVorPrototypeOccurrence>(node("O"))->setLocation(place)) << at;
      EXPECT_FALSE(zelXmlAddTransform(element("A"), "field", place));
      EXPECT_EQ(zelXmlAddTranslation(parse("<a/>").documentElement(), "v", place.getTranslation()), at >= 3);
    }
    EXPECT_FALSE(zelXmlAddDouble(element("A"), "field", bad));
    EXPECT_FALSE(zelXmlSetDoubleText(element("A"), bad));
    EXPECT_FALSE(zelXmlAddDoubleList(element("A"), "field", ZelXmlList<double>({1.0, bad}), false));
  }
  EXPECT_FALSE(physical("A")->setLocation(along(1e308))) << "P, below, would stand at 2e308";
  EXPECT_FALSE(physical("B")->setLocation(along(1e308))) << "2e308 from where it stands";
  EXPECT_FALSE(collection("B")->moveChild(node("P"))) << "2e308 from B";
  EXPECT_FALSE(collection("B")->moveChild(node("C"))) << "and its shortcut stays";
  EXPECT_FALSE(local("C", "P")) << "1e308 on top of 1e308";
  EXPECT_EQ(root(study), before);
  EXPECT_EQ(root(stream), published);
  EXPECT_EQ(roots(), "A B C O S");
}

TEST_F(EditsTest, AnIdIsInUseByANodeOrAnObject) {
  // A shortcut has no node, a local prototype no element.
  ASSERT_TRUE(wrapper->createLocalPrototypeNode(
      ApiPmPrototypeData(ApiPmId("E"), ApiPmTypeData("PmPartPrototype", "PartPrototype")), "e"));
  for (const char* id : {"A", "P", "K", "LA", "E"}) EXPECT_TRUE(wrapper->isIdInUse(ApiPmId(id))) << id;
  for (const char* id : {"", "NULL", "none"}) EXPECT_FALSE(wrapper->isIdInUse(ApiPmId(id))) << id;
}

TEST_F(EditsTest, SavingAnotherDocumentThanTheOneBuiltIsLogged) {
  std::vector<std::string> logged;
  ApiLogLogger::instance()->setSink(
      [&](std::string_view category, std::string_view, int, int, std::string_view text) {
        logged.push_back(std::string(category) + ": " + std::string(text));
      },
      ApiLogLogger::error);
  const auto saves = [&] {
    std::ostringstream stream;
    EXPECT_TRUE(wrapper->write(stream));
    return stream.str();
  };
  EXPECT_NE(saves().find("PmCompoundPart"), std::string::npos);
  EXPECT_EQ(joined(logged), "");
  openText(dataOf("<Other/>"));
  EXPECT_NE(saves().find("<Other/>"), std::string::npos);
  EXPECT_EQ(joined(logged),
            "ZelXml: ZelXmlWrapper::write saves the session's document, which is not the one that was built");
  ASSERT_TRUE(wrapper->build(false));
  saves();
  EXPECT_EQ(logged.size(), 1U);
  ApiLogLogger::instance()->setSink(nullptr);
}

TEST_F(EditsTest, RootsTakeTheOrderAskedFor) {
  wrapper->reorderRoots({ApiPmId("S"), ApiPmId("P"), ApiPmId("A")});
  ApiPmIdList ids;
  wrapper->getRoots(ids);
  EXPECT_EQ(joined(ids), "S A B");
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
  EXPECT_EQ(element(id.text()).xml(),
            bare("PmEquipmentPrototype", "new1",
                 familyOf("EquipmentPrototype") + "<children/><weight>2.500000</weight>"));
  EXPECT_EQ(node("new1")->type(), ZEL_EQUIPMENT_PROTOTYPE);
  EXPECT_EQ(roots(), "A B S");
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
  ASSERT_TRUE(remove("P"));
  EXPECT_TRUE(wrapper->isNodeInExportedNodes(ApiPmId("A"), answer) && answer);
  EXPECT_TRUE(wrapper->isNodeInExportDeletedNodes(ApiPmId("P"), answer) && answer);
  EXPECT_TRUE(wrapper->isNodeInExportedNodes(ApiPmId("P"), answer) && !answer);
}

}  // namespace
