#include "StudyGenerator.h"
#include "wrapper/StudyTest.h"

using namespace document_test;

namespace {

class UpdateTest : public StudyTest {
 protected:
  void give(const std::string& objects) { wrapper->setUpdateDocument(parse(dataOf(objects))); }
  std::string full() {
    ApiPmIdList gone;
    ApiPmIdList updated;
    const bool result = wrapper->update(gone, updated, false);
    return std::string(result ? "" : "false: ") + joined(updated) + " - " + joined(gone);
  }
  std::string incremental() {
    ApiPmIdList updated;
    const bool result = wrapper->incrementalUpdate(updated, false);
    return std::string(result ? "" : "false: ") + joined(updated);
  }
  static std::string named(const std::string& type, const std::string& id, const std::string& family,
                           const std::string& name) {
    return made(type, id, family, field("name", name));
  }
};

TEST_F(UpdateTest, AFullUpdateAddsReplacesAndRemoves) {
  build(part("A", "", "X Y") + part("X", "A", "-") + part("Y", "A", "-") + part("B", "", "") +
        layout("LA", "A") + layout("LB", "B") + named("Label", "N", "Label", "old") + studyOf("S", "", ""));
  publish();
  ZelNode* a = node("A");
  // A lost X, which is gone, and Y, which moved to B; C is new below B; the label's new data is dropped.
  give(part("A", "", "") + part("B", "", "Y") + part("Y", "B", "-") + part("C", "B", "-") +
       layout("LC", "C", "LB") + part("R", "", "-") + named("Label", "N", "Label", "new") + partWithoutId +
       made("PmPartInstance", "", "Product"));
  EXPECT_EQ(full(), "A B Y C LC R N   - X");
  EXPECT_FALSE(exists("")) << "an object that nothing could find stays out";
  EXPECT_EQ(node("A"), a) << "pointers survive";
  expectLists({{"A/children", ""}, {"B/children", "Y C"}, {"LB/children", "LC"}});
  EXPECT_EQ(parentsOf({"C", "Y"}), "B B");
  EXPECT_FALSE(exists("X"));
  EXPECT_EQ(node("X"), nullptr);
  EXPECT_EQ(nameOf("N"), "old");
  EXPECT_EQ(roots(), "A B R S");
  EXPECT_EQ(updated() + deleted(), "") << "an update is no edit";

  // A child that is in no document ends the removals; all else is done.
  build(part("A", "", "gone X") + part("X", "A", "-"));
  give(part("A", "", ""));
  EXPECT_EQ(full(), "false: A - ");
  EXPECT_TRUE(exists("X"));
}

TEST_F(UpdateTest, AnIncrementalUpdateOnlyAdds) {
  build(part("A", "", "X") + part("X", "A", "-") + layout("LA", "A") +
        named("MarvekStudy", "S", "Study", "old"));
  ZelNode* theStudy = node("S");
  give(part("A", "", "") + part("C", "A", "-") + layout("LC", "C", "LA") +
       named("MarvekStudy", "S", "Study", "new") + shortcutTo("K", "C", ""));
  EXPECT_EQ(incremental(), "A C S");
  EXPECT_EQ(list("A", "children"), "X C");
  EXPECT_EQ(node("S"), theStudy);
  EXPECT_EQ(nameOf("S"), "new");
  ApiPmId shortcut;
  EXPECT_TRUE(wrapper->findShortcut(ApiPmId("C"), shortcut) && shortcut.text() == "K");
}

TEST_F(UpdateTest, ContentMovesToAnotherStudy) {
  build(studyOf("S", "K", "I") + shortcutTo("K", "A", "S") + infoWith("I", "LI") +
        bare("PmStudyLayout", "LI") + part("A", "", "-"));
  EXPECT_TRUE(wrapper->moveContentToNewStudy(parse(dataOf(made("MarvekStudy", "T", "Study", "<children/>"))),
                                             ApiPmId("unread")));
  EXPECT_EQ(wrapper->studyId(), "T");
  EXPECT_FALSE(exists("S") || exists("K") || exists("I") || exists("LI"));
  EXPECT_EQ(roots(), "A T");
  bool contained = true;
  EXPECT_TRUE(wrapper->doesStudyContainNodeByShortcut(ApiPmId("A"), contained) && !contained);
  EXPECT_FALSE(wrapper->moveContentToNewStudy(parse("<Data/>"), {})) << "a study without shortcuts";
}

TEST_F(UpdateTest, RepresentationIdsAreTakenOver) {
  const auto object = [](const char* id, const char* rep) { return bare("P", id, field("threeDRep", rep)); };
  const auto rep = [](const char* id, const char* file) { return bare("Pm3DRep", id, field("file", file)); };
  const std::string file = bare("PmReferenceFile", "F");
  build(object("P", "R") + bare("P", "Q") + rep("R", "F") + file);
  const std::string given = object("P", "R2") + object("Q", "R2") + rep("R2", "F2");
  give(given);
  ApiPmIdList ids{ApiPmId("P"), ApiPmId("none")};
  EXPECT_TRUE(wrapper->update3DRepId(ids));
  EXPECT_EQ(objects(), object("P", "R2") + bare("P", "Q") + rep("R", "F2") + file)
      << "representation and file are found under their new ids, and keep their own";
  ids = {ApiPmId("Q")};
  EXPECT_TRUE(wrapper->update3DRepId(ids));
  EXPECT_EQ(element("Q").xml(), object("Q", "R2"));
  EXPECT_EQ(at(wrapper->updateDocument(), "Data/Objects").xml(), field("Objects", given))
      << "the update document is only read";
}

TEST_F(UpdateTest, EveryPointerSurvivesAFullUpdateOfEveryObject) {
  const std::string text = zelgen::generateStudy({.objects = 600});
  buildText(text);
  ZelNodeList nodes;
  wrapper->getAllNodes(nodes);
  const std::string before = roots();
  wrapper->setUpdateDocument(parse(text));
  ASSERT_TRUE(wrapper->update(false));
  ZelNodeList after;
  wrapper->getAllNodes(after);
  EXPECT_EQ(after, nodes);
  EXPECT_EQ(roots(), before);
  for (ZelNode* each : nodes) {
    ApiPmId id;
    ASSERT_TRUE(each->getExternalId(id));
    IXMLDOMElement standing;
    EXPECT_TRUE(study.findByAttribute("ExternalId", id.text(), standing));
    EXPECT_EQ(zelXmlElementNodeOf(each)->getXmlNode(), standing) << id.text();
  }
}

}  // namespace
