#include "StudyGenerator.h"
#include "wrapper/StudyTest.h"

using namespace document_test;

namespace {

class UpdateTest : public StudyTest {
 protected:
  void give(const std::string& objects) {
    wrapper->setUpdateDocument(parse("<Data><Objects>" + objects + "</Objects></Data>"));
  }
  static std::string joined(const ApiPmIdList& ids) {
    std::string text;
    for (const ApiPmId& id : ids) text += (text.empty() ? "" : " ") + id.asString();
    return text;
  }
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
  const std::string study1 =
      "<MarvekStudy ExternalId=\"S\"><name>old</name><NodeInfo><family>Study</family>"
      "</NodeInfo></MarvekStudy>";
};

TEST_F(UpdateTest, AFullUpdateAddsReplacesAndRemoves) {
  build(part("A", "", items({"X", "Y"})) + part("X", item("A"), "-") + part("Y", item("A"), "-") +
        part("B", "", "") + layout("LA", "A", "NULL", "", 0, 0) + layout("LB", "B", "NULL", "", 0, 0) +
        "<Label ExternalId=\"N\"><name>old</name><NodeInfo><family>Label</family></NodeInfo></Label>" +
        study1);
  publish();
  ZelNode* a = node("A");
  // A lost X, which is gone, and Y, which moved to B; C is new below B; the label's new data is dropped.
  give(part("A", "", "") + part("B", "", item("Y")) + part("Y", item("B"), "-") + part("C", item("B"), "-") +
       layout("LC", "C", "LB", "", 0, 0) +
       "<Label ExternalId=\"N\"><name>new</name><NodeInfo><family>Label</family></NodeInfo></Label>" +
       "<PmPartInstance><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>"
       "<PmPartInstance ExternalId=\"\"><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>");
  EXPECT_EQ(full(), "A B Y C LC N   - X");
  EXPECT_FALSE(exists("")) << "an object that nothing could find stays out";
  EXPECT_EQ(node("A"), a) << "pointers survive";
  EXPECT_EQ(list("A", "children"), "");
  EXPECT_EQ(list("B", "children"), "Y C");
  EXPECT_EQ(list("LB", "children"), "LC");
  EXPECT_EQ(parentOf("C"), "B");
  EXPECT_EQ(parentOf("Y"), "B");
  EXPECT_FALSE(exists("X"));
  EXPECT_EQ(node("X"), nullptr);
  RWClassicWString name;
  EXPECT_TRUE(node("N")->getName(name) && name == "old");
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "B", "S"}));
  EXPECT_EQ(updated() + deleted(), "") << "an update is no edit";

  // A child that is in no document ends the removals; all else is done.
  build(part("A", "", items({"gone", "X"})) + part("X", item("A"), "-"));
  give(part("A", "", ""));
  EXPECT_EQ(full(), "false: A - ");
  EXPECT_TRUE(exists("X"));
}

TEST_F(UpdateTest, AnIncrementalUpdateOnlyAdds) {
  build(part("A", "", item("X")) + part("X", item("A"), "-") + layout("LA", "A", "NULL", "", 0, 0) + study1);
  ZelNode* theStudy = node("S");
  give(part("A", "", "") + part("C", item("A"), "-") + layout("LC", "C", "LA", "", 0, 0) +
       "<MarvekStudy "
       "ExternalId=\"S\"><name>new</name><NodeInfo><family>Study</family></NodeInfo></MarvekStudy>"
       "<PmShortcut ExternalId=\"K\"><linkExternalID>C</linkExternalID><NodeInfo><family>Shortcut</family>"
       "</NodeInfo></PmShortcut>");
  EXPECT_EQ(incremental(), "A C S");
  EXPECT_EQ(list("A", "children"), "X C");
  EXPECT_EQ(node("S"), theStudy);
  RWClassicWString name;
  EXPECT_TRUE(theStudy->getName(name) && name == "new");
  ApiPmId shortcut;
  EXPECT_TRUE(wrapper->findShortcut(ApiPmId("C"), shortcut) && shortcut.text() == "K");
}

TEST_F(UpdateTest, ContentMovesToAnotherStudy) {
  build(
      "<MarvekStudy ExternalId=\"S\"><children><item>K</item></children><info><item>I</item></info><NodeInfo>"
      "<family>Study</family></NodeInfo></MarvekStudy><PmShortcut ExternalId=\"K\"><parent>S</parent>"
      "<linkExternalID>A</linkExternalID><NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>"
      "<MarvekStudyInfo ExternalId=\"I\"><layout>LI</layout></MarvekStudyInfo>"
      "<PmStudyLayout ExternalId=\"LI\"/>" +
      part("A", "", "-"));
  EXPECT_TRUE(wrapper->moveContentToNewStudy(
      parse("<Data><Objects><MarvekStudy "
            "ExternalId=\"T\"><children/><NodeInfo><family>Study</family></NodeInfo>"
            "</MarvekStudy></Objects></Data>"),
      ApiPmId("unread")));
  EXPECT_EQ(wrapper->studyId(), "T");
  EXPECT_FALSE(exists("S") || exists("K") || exists("I") || exists("LI"));
  EXPECT_EQ(roots(), (std::vector<std::string>{"A", "T"}));
  bool contained = true;
  EXPECT_TRUE(wrapper->doesStudyContainNodeByShortcut(ApiPmId("A"), contained) && !contained);
  EXPECT_FALSE(wrapper->moveContentToNewStudy(parse("<Data/>"), {})) << "a study without shortcuts";
}

TEST_F(UpdateTest, RepresentationIdsAreTakenOver) {
  build(
      "<P ExternalId=\"P\"><threeDRep>R</threeDRep></P><P ExternalId=\"Q\"/>"
      "<Pm3DRep ExternalId=\"R\"><file>F</file></Pm3DRep><PmReferenceFile ExternalId=\"F\"/>");
  const std::string given =
      "<P ExternalId=\"P\"><threeDRep>R2</threeDRep></P><P ExternalId=\"Q\"><threeDRep>R2</threeDRep></P>"
      "<Pm3DRep ExternalId=\"R2\"><file>F2</file></Pm3DRep>";
  give(given);
  ApiPmIdList ids{ApiPmId("P"), ApiPmId("none")};
  EXPECT_TRUE(wrapper->update3DRepId(ids));
  EXPECT_EQ(objects(),
            "<P ExternalId=\"P\"><threeDRep>R2</threeDRep></P><P ExternalId=\"Q\"/>"
            "<Pm3DRep ExternalId=\"R\"><file>F2</file></Pm3DRep><PmReferenceFile ExternalId=\"F\"/>")
      << "representation and file are found under their new ids, and keep their own";
  ids = {ApiPmId("Q")};
  EXPECT_TRUE(wrapper->update3DRepId(ids));
  EXPECT_EQ(element("Q").xml(), "<P ExternalId=\"Q\"><threeDRep>R2</threeDRep></P>");
  EXPECT_EQ(at(wrapper->updateDocument(), "Data/Objects").xml(), "<Objects>" + given + "</Objects>")
      << "the update document is only read";
}

TEST_F(UpdateTest, EveryPointerSurvivesAFullUpdateOfEveryObject) {
  zelgen::StudyOptions options;
  options.objects = 600;
  const std::string text = zelgen::generateStudy(options);
  study = parse(text);
  session().setImportedDocumentAndDocRef(study, {});
  ASSERT_TRUE(wrapper->build(false));
  ZelNodeList nodes;
  wrapper->getAllNodes(nodes);
  const std::vector<std::string> before = roots();
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
    EXPECT_EQ(zelXmlNodeOf(each)->getXmlNode(), standing) << id.text();
  }
}

}  // namespace
