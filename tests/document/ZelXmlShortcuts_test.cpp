#include "document/DocumentTest.h"

using namespace document_test;

namespace {

std::string items(std::initializer_list<const char*> ids) {
  std::string text;
  for (const std::string id : ids) text += "<item>" + id + "</item>";
  return text;
}

std::string list(const std::string& name, const std::string& items) {
  return items.empty() ? "<" + name + "/>" : "<" + name + ">" + items + "</" + name + ">";
}

std::string study(const std::string& children, const std::string& infos,
                  const std::string& className = "MarvekStudy") {
  return "<" + className + " ExternalId=\"study\"><name>S</name><comment>c</comment><attachments/>" +
         list("children", children) + list("info", infos) + "</" + className + ">";
}

// A shortcut `s` to the object `o`, with info `i` and layout `l`, each followed by `n`.
std::string shortcut(const std::string& n, const std::string& family) {
  return "<PmShortcut ExternalId=\"s" + n + "\"><parent>study</parent><linkExternalID>o" + n +
         "</linkExternalID></PmShortcut><MarvekStudyInfo ExternalId=\"i" + n + "\"><layout>l" + n +
         "</layout></MarvekStudyInfo><PmStudyLayout ExternalId=\"l" + n + "\"/><O ExternalId=\"o" + n +
         "\"><NodeInfo><family>" + family + "</family></NodeInfo></O>";
}

std::string onlyObject(const std::string& n, const std::string& family) {
  const std::string text = shortcut(n, family);
  return text.substr(text.find("<O "));
}

std::string newLayout(const std::string& id) {
  const std::string zeros = "<item>0.000000</item><item>0.000000</item><item>0.000000</item>";
  return "<PmStudyLayout ExternalId=\"" + id + "\"><location>" + zeros + "</location><rotation>" + zeros +
         "</rotation><children/><parent>NULL</parent><NodeInfo><family>PmStudyLayout</family></NodeInfo>"
         "</PmStudyLayout>";
}

std::string newInfo(const std::string& id, const std::string& layoutId) {
  return "<MarvekStudyInfo ExternalId=\"" + id + "\"><layout>" + layoutId + "</layout></MarvekStudyInfo>";
}

using DocumentShortcuts = DocumentTest;

}  // namespace

TEST_F(DocumentShortcuts, ALayoutIsMadePublishedAndNamedByItsOwner) {
  open("<P ExternalId=\"p\"/>");
  EXPECT_TRUE(zelXmlCreateLayout(study, out, element("p"), RTTran3D({1, 2, 3}, {0, 0, 0.5})));
  const std::string layout =
      "<PmLayout ExternalId=\"new1\"><location><item>1.000000</item><item>2.000000</item>"
      "<item>3.000000</item></location><rotation><item>0.000000</item><item>0.000000</item>"
      "<item>0.500000</item></rotation><children/><parent>NULL</parent><node>p</node><NodeInfo>"
      "<family>PmLayout</family><absoluteLocation><x>1.000000</x><y>2.000000</y><z>3.000000</z>"
      "<rx>0.000000</rx><ry>0.000000</ry><rz>0.500000</rz></absoluteLocation></NodeInfo></PmLayout>";
  EXPECT_EQ(objects(), "<P ExternalId=\"p\"><layout>new1</layout></P>" + layout);
  EXPECT_EQ(root(out), updates(layout));
}

TEST_F(DocumentShortcuts, ANewShortcutComesWithInfoAndLayout) {
  open(::study("", ""));
  IXMLDOMNode made;
  EXPECT_TRUE(zelXmlCreateShortcut(study, out, element("study"), "robot", made));
  EXPECT_EQ(objects(), ::study("", items({"new2"})) +
                           "<PmShortcut ExternalId=\"new1\"><name>robot</name><parent/><linkExternalID/>"
                           "<NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>" +
                           newInfo("new2", "new3") + newLayout("new3"));
  EXPECT_EQ(root(out), updates(newLayout("new3") + newInfo("new2", "new3")));
}

TEST_F(DocumentShortcuts, RemovingOperationShortcutsTakesAllThatBelongsToThem) {
  open(::study(items({"s1", "s2", "s3"}), items({"i1", "i2", "i3"})) + shortcut("1", "WeldPoint") +
       shortcut("2", "RoboticProgram") + shortcut("3", "Mfg"));
  EXPECT_TRUE(zelXmlRemoveOperationShortcuts(cached()));
  EXPECT_EQ(objects(), ::study(items({"s2"}), items({"i2"})) + onlyObject("1", "WeldPoint") +
                           shortcut("2", "RoboticProgram") + onlyObject("3", "Mfg"));
  EXPECT_FALSE(cached().isNodeCached(ApiPmId("l3")));
}

TEST_F(DocumentShortcuts, AShortcutGoesWithoutItsInfoButNotWithoutItsStudy) {
  open(::study(items({"s1"}), items({"gone"})) + shortcut("1", "Mfg") +
       "<PmShortcut ExternalId=\"lost\"><parent>gone</parent></PmShortcut>");
  EXPECT_FALSE(zelXmlRemoveShortcut(cached(), element("lost")));
  EXPECT_TRUE(zelXmlRemoveShortcut(cached(), element("s1")));
  const std::string rest = shortcut("1", "Mfg");
  EXPECT_EQ(objects(), ::study("", "") + rest.substr(rest.find("<MarvekStudyInfo")) +
                           "<PmShortcut ExternalId=\"lost\"><parent>gone</parent></PmShortcut>");
}

TEST_F(DocumentShortcuts, APublishedRemovalIsThreeDeletionsAndTheStudy) {
  open(::study(items({"s1", "s2"}), items({"i1", "i2"})) + shortcut("1", "Product"));
  EXPECT_TRUE(zelXmlRemoveStudyShortcut(cached(), out, ApiPmId("study"), ApiPmId("s1")));
  EXPECT_EQ(objects(), ::study(items({"s2"}), items({"i2"})) + onlyObject("1", "Product"));
  EXPECT_EQ(
      root(out),
      "<Data><Objects command=\"DG_DELETE_STREAM_COMMAND\"><PmShortcut ExternalId=\"s1\"/>"
      "<MarvekStudyInfo ExternalId=\"i1\"/><PmStudyLayout ExternalId=\"l1\"/></Objects>"
      "<Objects command=\"DG_UPDATE_STREAM_COMMAND\"><MarvekStudy ExternalId=\"study\"><attachments/>"
      "<children><item>s2</item></children><info><item>i2</item></info></MarvekStudy></Objects></Data>");
  EXPECT_FALSE(zelXmlRemoveStudyShortcut(cached(), out, ApiPmId("study"), ApiPmId("s2")));
}

TEST_F(DocumentShortcuts, FilteringBringsTheListsIntoLineAndDropsOperations) {
  const std::string objectsOfAll =
      shortcut("1", "Product") + shortcut("2", "RoboticProgram") + shortcut("3", "Product");
  const struct {
    std::string children, infos, childrenAfter, infosAfter;
  } cases[] = {
      {items({"s1", "s2"}), items({"i1", "i2", "i3", "i4"}), items({"s1"}), items({"i1"})},
      {items({"s1", "s3", "s2"}), items({"i1"}), items({"s1", "s3"}), items({"i1", "new1"})},
      {items({"s2", "s1", "s2"}), items({"i2", "i1", "i2"}), items({"s1"}), items({"i1"})},
      {"", "", "", ""},
  };
  for (const auto& c : cases) {
    open(::study(c.children, c.infos) + objectsOfAll);
    const IXMLDOMNode copy = element("study").cloneNode(true);
    EXPECT_TRUE(zelXmlFilterStudyShortcuts(study, copy, out)) << c.children;
    EXPECT_EQ(copy.xml(), ::study(c.childrenAfter, c.infosAfter));
    const bool isMade = c.infosAfter.find("new1") != std::string::npos;
    EXPECT_EQ(objects(), ::study(c.children, c.infos) + objectsOfAll +
                             (isMade ? newInfo("new1", "new2") + newLayout("new2") : ""));
  }
  EXPECT_EQ(root(out), updates(newLayout("new2") + newInfo("new1", "new2")));
}

TEST_F(DocumentShortcuts, ListsThatCannotBeBroughtIntoLineAreRefused) {
  open(::study(items({"s1"}), "", "PmStudy") + shortcut("1", "Product"));
  EXPECT_FALSE(zelXmlFilterStudyShortcuts(study, element("study").cloneNode(true), out));
  EXPECT_FALSE(zelXmlFilterStudyShortcuts(study, element("o1").cloneNode(true), out));
}

TEST_F(DocumentShortcuts, AFilteredStudyReplacesTheStudyAndKeepsItsName) {
  for (const int mode : {0, 2}) {
    session().modeField = mode;
    open(::study(items({"s1", "s2"}), items({"i1", "i2"})) + shortcut("1", "Product") + shortcut("2", "Mfg"));
    EXPECT_TRUE(zelXmlPublishFilteredStudy(study, ApiPmId("study"), out));
    EXPECT_EQ(root(out), updates(std::string("<MarvekStudy ExternalId=\"study\">") +
                                 (mode == 2 ? "<attachments/>" : "") +
                                 "<children><item>s1</item></children><info><item>i1</item></info>"
                                 "<name>S</name></MarvekStudy>"));
  }
  zelXmlRemoveNamedChild(element("study"), "name");
  EXPECT_FALSE(zelXmlPublishFilteredStudy(study, ApiPmId("study"), out));
}
