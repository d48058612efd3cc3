#include "zel/ZelPrototype.h"

#include "Folder.h"
#include "api/LocalFilesCacheClientFilesManager.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelPrototypeAssignment.h"

using namespace document_test;
namespace fs = std::filesystem;

namespace {

std::string usage(const std::string& id, const std::string& uses) {
  return made("PmPartPrototypeUsage", id, "PartPrototypeUsage", uses);
}
std::string prototype(const std::string& id, const std::string& fields = "") {
  return made("PmPartPrototype", id, "PartPrototype", fields + field("threeDRep", "R" + id));
}

// A study on prototypes, and a directory for their files, which is the system root.
class PrototypesTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    session().systemRoot = directory;
  }
  void TearDown() override {
    files.activate("");
    StudyTest::TearDown();
  }
  void write(const std::string& name, int time) const {
    const std::chrono::sys_seconds written{std::chrono::seconds(time)};
    fs::last_write_time(folder.write(name, name), std::chrono::file_clock::from_sys(written));
  }
  // "-" for false.
  std::string path(std::string_view id) const {
    std::string text;
    return wrapper->getPrototypePath(ApiPmId(id), text) ? text : "-";
  }
  std::int64_t time(std::string_view id) const {
    std::int64_t seconds = 99;
    const bool known = zelQuery<ZelPrototype>(node(id))->getModificationTime(seconds);
    EXPECT_EQ(known, seconds != 0);
    return seconds;
  }

  LocalFilesCacheClientFilesManager& files = LocalFilesCacheClientFilesManager::the();
  const files_test::Folder folder;
  const std::string& directory = folder.path();
};

TEST_F(PrototypesTest, AnAssignmentTellsWhatItUses) {
  build(prototype("P") + usage("used", "<uses>P</uses>") + usage("lost", "<uses>gone</uses>") +
        usage("null", "<uses>NULL</uses>") + usage("empty", "<uses/>") + usage("none", ""));
  for (const auto& [id, used] : std::map<std::string, std::string>{
           {"used", "P"}, {"lost", "gone"}, {"null", "-"}, {"empty", ""}, {"none", "-"}}) {
    const auto* assignment = zelQuery<ZelPrototypeAssignment>(node(id));
    ApiPmId prototypeId;
    EXPECT_EQ(assignment->getPrototypeId(prototypeId) ? prototypeId.asString() : "-", used) << id;
    EXPECT_EQ(assignment->getPrototype(), id == "used" ? node("P") : nullptr) << id;
  }
}

TEST_F(PrototypesTest, APathIsStoredBelowTheRootAndItsObjectsAreMade) {
  session().systemRoot = "C:\\Lib\\";
  const std::string rest = made("PmPartInstance", "place", "Product", "<threeDRep>RP</threeDRep>");
  const std::string family = familyOf("PartPrototype");
  build(prototype("P") + rep("P", "#Car\\Door") + rest + bare("PmPartPrototype", "bare", family));
  publish();
  EXPECT_EQ(path("P"), "C:\\Lib\\Car\\Door");
  EXPECT_EQ(path("place"), "C:\\Lib\\Car\\Door");
  for (const char* id : {"bare", "none"}) EXPECT_EQ(path(id), "-") << id;
  for (const char* id : {"place", "none"}) EXPECT_FALSE(wrapper->setPrototypePath(ApiPmId(id), "x")) << id;
  EXPECT_TRUE(wrapper->setPrototypePath(ApiPmId("bare"), "c:\\LIB\\B\xC3\xA4r"));
  EXPECT_TRUE(wrapper->setPrototypePath(ApiPmId("P"), "D:\\Lib\\x"));
  EXPECT_EQ(objects(), prototype("P") + rep("P", "D:\\Lib\\x") + rest +
                           bare("PmPartPrototype", "bare", family + "<threeDRep>new2</threeDRep>") +
                           bare("PmReferenceFile", "new1", "<fileName>#\\B\xC3\xA4r</fileName>") +
                           bare("Pm3DRep", "new2", "<file>new1</file>"));
  EXPECT_EQ(root(stream), "") << "nothing of a prototype is published";
}

TEST_F(PrototypesTest, TheTimeOfTheFirstFileIsReadOnce) {
  write("T\xC3\xBCr/in/b.jt", 2000);
  write("T\xC3\xBCr/in/a.jt", 3000);
  write("empty/door.xml", 5000);
  build(prototype("P") + rep("P", "#\\T\xC3\xBCr\\in") + prototype("Q") + rep("Q", "#\\empty") +
        prototype("lost") + rep("lost", "#\\gone") + prototype("none"));
  EXPECT_EQ(time("P"), 3000);
  fs::remove_all(fs::path(directory) / "T\xC3\xBCr");
  EXPECT_EQ(time("P"), 3000);
  for (const char* id : {"Q", "lost", "none"}) EXPECT_EQ(time(id), 0) << id;
  write("empty/late.jt", 7000);
  EXPECT_EQ(time("Q"), 7000) << "what is not known is looked up again";
}

TEST_F(PrototypesTest, ALocalPrototypeHasNoElement) {
  write("door/a.jt", 2000);
  build("");
  publish();
  ApiPmId id("local");
  ZelNode* local = wrapper->createLocalPrototypeNode({id, {"PmSome", "PartPrototype"}}, "Some");
  ASSERT_TRUE(local && local == node("local"));
  EXPECT_TRUE(wrapper->setPrototypePath(id, directory + "\\door") && local->setName("Other"));
  EXPECT_EQ(path(id.text()), directory + "\\door");
  EXPECT_EQ(time(id.text()), 2000);
  // All that would need an element.
  ZelXmlNode& xml = *zelXmlNodeOf(local);
  EXPECT_FALSE(local->setDescription("x") || local->getParent() || xml.createLabel(id, {}) ||
               xml.writeLocation(RTTran3D()) || xml.addChild(local) ||
               wrapper->registerNodeForPreDownload(*local) || wrapper->getPrototypeDataAsOutputDoc(id, out) ||
               wrapper->deleteNode(id));
  EXPECT_EQ(objects() + root(stream) + root(out), "");
}

TEST_F(PrototypesTest, AnOutputDocumentHoldsThePrototypeAndWhatBelongsToIt) {
  const auto equipment = [](const char* id, const char* children, const char* fields = "") {
    return made("PmEquipmentPrototype", id, "EquipmentPrototype", std::string(fields) + children);
  };
  const char *children = "<children><item>O1</item><item>gone</item><item>O2</item></children>",
             *geometry = "<threeDRep>RE</threeDRep>";
  const std::string second = made("PmToolInstance", "O2", "Resource", "<layout>gone</layout>");
  const auto occurrence = [](const std::string& first, const std::string& last, const std::string& layout) {
    return bare("PmToolInstance", "O1", first + "<layout>L</layout>" + familyOf("Resource") + last) +
           bare("PmLayout", "L", layout + "<node>O1</node>");
  };
  const std::string occurrences = occurrence("", "<comment>t</comment><name>n</name>", "") + second;
  build(equipment("E", children, "<name>E</name><threeDRep>RE</threeDRep>") + rep("E", "#\\e") +
        occurrence("<name>n</name><caption>c</caption><comment>t</comment>", "", "<name>l</name>") + second +
        prototype("P", "<name>P</name>") + rep("P", "#\\p"));

  using Call = bool (ZelXmlWrapper::*)(const ApiPmId&, const IXMLDOMDocument&) const;
  const Call plain = &ZelXmlWrapper::getPrototypeDataAsOutputDoc,
             with3D = &ZelXmlWrapper::getPrototypeDataWith3DAsOutputDoc;
  const struct {
    Call call;
    const char* id;
    bool result;
    std::string content;
  } cases[] = {{plain, "E", true, equipment("E", children) + occurrences},
               {plain, "P", true, made("PmPartPrototype", "P", "PartPrototype")},
               {plain, "none", false, ""},
               {with3D, "E", true, equipment("E", children, geometry) + rep("E", "#\\e") + occurrences}};
  for (const auto& test : cases) {
    const IXMLDOMDocument document = IXMLDOMDocument::create();
    EXPECT_EQ((wrapper.get()->*test.call)(ApiPmId(test.id), document), test.result) << test.id;
    EXPECT_EQ(root(document), test.content.empty() ? "" : updates(test.content)) << test.id;
    EXPECT_FALSE(ApiPmXmlCacheDocumentMgr::the().removeDocument(document)) << "registered for the call only";
  }
  // A list ends at the first that fails; the plain form takes the first geometry of the document, whosever.
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  ApiPmIdList ids;
  for (const char* id : {"P", "none", "E"}) ids.append(ApiPmId(id));
  EXPECT_FALSE(wrapper->getListOfPrototypeDataWith3DRepAsOutputDoc(ids, document));
  EXPECT_EQ(root(document), updates(prototype("P") + rep("P", "#\\p")));
  EXPECT_TRUE(wrapper->getPrototypeDataAsOutputDoc(ApiPmId("E"), document));
  EXPECT_EQ(root(document), updates(made("PmPartPrototype", "P", "PartPrototype") + rep("P", "#\\p") +
                                    equipment("E", children, geometry) + occurrences));
}

TEST_F(PrototypesTest, FilesOfPrototypesComeThroughTheCache) {
  write("in/a.jt", 2000);
  const auto placed = [](const char* id, const char* field) {
    return made("PmPartInstance", id, "Product", field);
  };
  build(prototype("P") + rep("P", "#\\in") + prototype("lost") + rep("lost", "#\\gone") + prototype("none") +
        placed("I", "<prototype>P</prototype>") + placed("J", "<prototype/>") + usage("U", "<uses>P</uses>") +
        placed("place", "<threeDRep>Rlost</threeDRep>"));
  EXPECT_FALSE(wrapper->registerNodeForPreDownload(*node("I"))) << "the cache is off";
  // What is registered, and comes: +, registered, and cannot be had: !, not registered: -.
  int turn = 0;
  for (const auto& [id, expected] : std::map<std::string, char>{
           {"I", '+'}, {"U", '+'}, {"P", '+'}, {"place", '!'}, {"lost", '!'}, {"J", '-'}, {"none", '-'}}) {
    std::string local;
    ASSERT_TRUE(files.activate(directory + "/cache" + std::to_string(turn++)));
    EXPECT_EQ(wrapper->registerNodeForPreDownload(*node(id)), expected != '-') << id;
    EXPECT_FALSE(files.getDownloadedPath(directory + "\\in", local, false)) << "only marked";
    EXPECT_EQ(files.downloadFiles(), expected != '!') << id;
    EXPECT_EQ(files.getDownloadedPath(directory + "\\in", local, false), expected == '+') << id;
  }
  // The path is that of the copy; the stored name stays that of the origin.
  const std::string copy = path("P");
  EXPECT_TRUE(copy.starts_with(directory + "/cache") && fs::exists(copy + "/a.jt")) << copy;
  EXPECT_TRUE(wrapper->setPrototypePath(ApiPmId("P"), copy));
  EXPECT_EQ(text("FP", "fileName"), "#\\in");
  EXPECT_EQ(path("lost"), "-") << "not that of an origin that cannot be had";
  // A build fetches all of a study first, and says so when it cannot.
  EXPECT_FALSE(wrapper->build(true));
  ASSERT_TRUE(wrapper->build(false) && wrapper->setPrototypePath(ApiPmId("lost"), directory + "/in"));
  std::string origin;
  EXPECT_TRUE(files.getSourcePath(directory + "/in", origin)) << "a file that was no copy is its own origin";
  EXPECT_TRUE(files.activate(directory + "/fresh") && wrapper->build(true));
}

}  // namespace
