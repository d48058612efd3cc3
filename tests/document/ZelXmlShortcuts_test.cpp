#include "document/DocumentTest.h"

using namespace document_test;

namespace {

std::string studyWith(const std::string& children, const std::string& infos,
                      const std::string& className = "MarvekStudy") {
  return bare(className, "study",
              "<name>S</name><comment>c</comment><attachments/>" + listOf("children", children) +
                  listOf("info", infos));
}

std::string objectOf(const std::string& n, const std::string& family) { return made("O", "o" + n, family); }

// A shortcut `s` to the object `o`, with info `i` and layout `l`, each followed by `n`.
std::string infoOf(const std::string& n) {
  return infoWith("i" + n, "l" + n) + bare("PmStudyLayout", "l" + n);
}
std::string shortcut(const std::string& n, const std::string& family) {
  return bare("PmShortcut", "s" + n, "<parent>study</parent>" + field("linkExternalID", "o" + n)) +
         infoOf(n) + objectOf(n, family);
}

std::string newLayout(const std::string& id) {
  const std::string zeros = items("0.000000 0.000000 0.000000");
  return made("PmStudyLayout", id, "PmStudyLayout",
              field("location", zeros) + field("rotation", zeros) + "<children/><parent>NULL</parent>");
}

using DocumentShortcuts = DocumentTest;

}  // namespace

TEST_F(DocumentShortcuts, ALayoutIsMadePublishedAndNamedByItsOwner) {
  open("<P ExternalId=\"p\"/>");
  EXPECT_TRUE(zelXmlCreateLayout(study, out, element("p"), RTTran3D({1, 2, 3}, {0, 0, 0.5})));
  const std::string layout = bare(
      "PmLayout", "new1",
      listOf("location", "1.000000 2.000000 3.000000") + listOf("rotation", "0.000000 0.000000 0.500000") +
          "<children/><parent>NULL</parent><node>p</node><NodeInfo><family>PmLayout</family>"
          "<absoluteLocation><x>1.000000</x><y>2.000000</y><z>3.000000</z><rx>0.000000</rx>"
          "<ry>0.000000</ry><rz>0.500000</rz></absoluteLocation></NodeInfo>");
  EXPECT_EQ(objects(), "<P ExternalId=\"p\"><layout>new1</layout></P>" + layout);
  EXPECT_EQ(root(out), updates(layout));
}

TEST_F(DocumentShortcuts, ANewShortcutComesWithInfoAndLayout) {
  open(studyWith("", ""));
  IXMLDOMNode shown;
  EXPECT_TRUE(zelXmlCreateShortcut(study, out, element("study"), "robot", shown));
  EXPECT_EQ(objects(),
            studyWith("", "new2") +
                made("PmShortcut", "new1", "Shortcut", "<name>robot</name><parent/><linkExternalID/>") +
                infoWith("new2", "new3") + newLayout("new3"));
  EXPECT_EQ(root(out), updates(newLayout("new3") + infoWith("new2", "new3")));
}

TEST_F(DocumentShortcuts, RemovingOperationShortcutsTakesAllThatBelongsToThem) {
  open(studyWith("s1 s2 s3", "i1 i2 i3") + shortcut("1", "WeldPoint") + shortcut("2", "RoboticProgram") +
       shortcut("3", "Mfg"));
  EXPECT_TRUE(zelXmlRemoveOperationShortcuts(cached()));
  EXPECT_EQ(objects(), studyWith("s2", "i2") + objectOf("1", "WeldPoint") + shortcut("2", "RoboticProgram") +
                           objectOf("3", "Mfg"));
  EXPECT_FALSE(cached().isNodeCached(ApiPmId("l3")));
}

TEST_F(DocumentShortcuts, AShortcutGoesWithoutItsInfoButNotWithoutItsStudy) {
  const std::string lost = bare("PmShortcut", "lost", "<parent>gone</parent>");
  open(studyWith("s1", "gone") + shortcut("1", "Mfg") + lost);
  EXPECT_FALSE(zelXmlRemoveShortcut(cached(), element("lost")));
  EXPECT_TRUE(zelXmlRemoveShortcut(cached(), element("s1")));
  EXPECT_EQ(objects(), studyWith("", "") + infoOf("1") + objectOf("1", "Mfg") + lost);
}

TEST_F(DocumentShortcuts, APublishedRemovalIsThreeDeletionsAndTheStudy) {
  open(studyWith("s1 s2", "i1 i2") + shortcut("1", "Product"));
  EXPECT_TRUE(zelXmlRemoveStudyShortcut(cached(), out, ApiPmId("study"), ApiPmId("s1")));
  EXPECT_EQ(objects(), studyWith("s2", "i2") + objectOf("1", "Product"));
  EXPECT_EQ(root(out), "<Data><Objects command=\"DG_DELETE_STREAM_COMMAND\">" + bare("PmShortcut", "s1") +
                           bare("MarvekStudyInfo", "i1") + bare("PmStudyLayout", "l1") +
                           "</Objects><Objects command=\"DG_UPDATE_STREAM_COMMAND\">" +
                           bare("MarvekStudy", "study",
                                "<attachments/>" + listOf("children", "s2") + listOf("info", "i2")) +
                           "</Objects></Data>");
  EXPECT_FALSE(zelXmlRemoveStudyShortcut(cached(), out, ApiPmId("study"), ApiPmId("s2")));
}

TEST_F(DocumentShortcuts, FilteringBringsTheListsIntoLineAndDropsOperations) {
  const std::string objectsOfAll =
      shortcut("1", "Product") + shortcut("2", "RoboticProgram") + shortcut("3", "Product");
  const struct {
    std::string children, infos, childrenAfter, infosAfter;
  } cases[] = {
      {"s1 s2", "i1 i2 i3 i4", "s1", "i1"},
      {"s1 s3 s2", "i1", "s1 s3", "i1 new1"},
      {"s2 s1 s2", "i2 i1 i2", "s1", "i1"},
      {"", "", "", ""},
  };
  for (const auto& c : cases) {
    open(studyWith(c.children, c.infos) + objectsOfAll);
    const IXMLDOMNode copy = element("study").cloneNode(true);
    EXPECT_TRUE(zelXmlFilterStudyShortcuts(study, copy, out)) << c.children;
    EXPECT_EQ(copy.xml(), studyWith(c.childrenAfter, c.infosAfter));
    const bool isMade = c.infosAfter.find("new1") != std::string::npos;
    EXPECT_EQ(objects(), studyWith(c.children, c.infos) + objectsOfAll +
                             (isMade ? infoWith("new1", "new2") + newLayout("new2") : ""));
  }
  EXPECT_EQ(root(out), updates(newLayout("new2") + infoWith("new1", "new2")));
}

TEST_F(DocumentShortcuts, ListsThatCannotBeBroughtIntoLineAreRefused) {
  open(studyWith("s1", "", "PmStudy") + shortcut("1", "Product"));
  EXPECT_FALSE(zelXmlFilterStudyShortcuts(study, element("study").cloneNode(true), out));
  EXPECT_FALSE(zelXmlFilterStudyShortcuts(study, element("o1").cloneNode(true), out));
}

TEST_F(DocumentShortcuts, AFilteredStudyReplacesTheStudyAndKeepsItsName) {
  for (const int mode : {0, 2}) {
    session().modeField = mode;
    open(studyWith("s1 s2", "i1 i2") + shortcut("1", "Product") + shortcut("2", "Mfg"));
    EXPECT_TRUE(zelXmlPublishFilteredStudy(study, ApiPmId("study"), out));
    EXPECT_EQ(root(out),
              updates(bare("MarvekStudy", "study",
                           std::string(mode == 2 ? "<attachments/>" : "") + listOf("children", "s1") +
                               listOf("info", "i1") + "<name>S</name>")));
  }
  zelXmlRemoveNamedChild(element("study"), "name");
  EXPECT_FALSE(zelXmlPublishFilteredStudy(study, ApiPmId("study"), out));
}
