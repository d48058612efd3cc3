#include "StudyGenerator.h"
#include "api/ApiLogLogger.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "node/ZelXmlConcreteNode.h"
#include "plc/ZelXmlSignal.h"
#include "wrapper/StudyTest.h"

using namespace document_test;

namespace {

using Import = ZelXmlUpdateFromExternalDocument;

std::string instanceOf(const std::string& id, const std::string& prototype) {
  return made("PmPartInstance", id, "Product",
              "<parents/>" + field("layout", "L" + id) + field("prototype", prototype));
}
std::string prototype(const std::string& id) {
  return made("PmPartPrototype", id, "PartPrototype", field("threeDRep", "R" + id));
}
// Its representation, and its file.
std::string repOf(const std::string& id) {
  return made("Pm3DRep", "R" + id, "ExternalDocument", field("file", "F" + id));
}
std::string fileOf(const std::string& id, const std::string& name) {
  return made("PmReferenceFile", "F" + id, "PmReferenceFile", field("fileName", name));
}

class ImportTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    session().rootNodeId = "S";
  }

  // The import of an external document with these objects; `run` says what was handled and removed.
  void give(const std::string& objects, std::uint32_t type, bool parts = false, bool resources = false) {
    external = parse(dataOf(objects));
    settings = std::make_unique<ApiPmAddToStudyFromFileData>(parts, resources);
    import = std::make_unique<Import>(external, *settings, *wrapper, Import::ImportType{type});
  }
  std::string run() {
    const bool result = import->execute();
    return std::string(result ? "" : "false: ") + joined(import->handledNodes()) +
           (import->removedNodes().isEmpty() ? "" : " - " + joined(import->removedNodes()));
  }
  std::string handledRoots() const { return joined(import->handledRoots()); }
  std::string message() const {
    if (messages.empty()) return "";
    return messages.back().code + " " + std::to_string(messages.back().severity) + " " +
           joined(messages.back().texts);
  }

  IXMLDOMDocument external;
  std::unique_ptr<ApiPmAddToStudyFromFileData> settings;
  std::unique_ptr<Import> import;
};

TEST_F(ImportTest, TheKindOfImportChoosesTheObjects) {
  // RQ and Q stand ahead of the instance X that names Q: Q is taken in the second walk, RQ never.
  const std::string objects =
      repOf("Q") + prototype("Q") + shortcutTo("KX", "X", "S2") + shortcutTo("KZ", "nowhere", "S2") +
      instanceOf("X", "Q") + instanceOf("Y", "P") +
      made("PmDvProcessAssembly", "D", "Product", "<parents/>") + prototype("P") + repOf("P") +
      fileOf("P", "p.cojt") + prototype("unused") + infoWith("I", "LI") +
      made("PmStudyLayout", "LI", "PmStudyLayout") + made("PmLayout", "LX", "PmLayout") +
      made("PmLayout", "other", "PmLayout") + made("PmToolPrototype", "T", "ToolPrototype") +
      made("PmToolInstance", "RT", "Resource", "<parents/>" + field("prototype", "T")) +
      made("PmToolboxUsage", "U", "PmToolboxUsage") + made("Label", "N", "Label") +
      made("PmOperation", "O", "Operation") + studyOf("S2", "KX", "I");
  const struct {
    std::uint32_t type;
    bool parts, resources;
    std::string handled;
  } cases[] = {
      {0, false, false, "RQ Q KX KZ X Y D P RP FP unused I LI LX other T RT U N O S"},
      {2, false, false, "RQ Q KX KZ X Y P RP FP unused I LI LX other T RT U N O"},
      {1, true, false, "X Y P RP FP I LI LX Q KX"},
      {1, false, true, "LI T RT U"},
      {1, true, true, "X Y P RP FP I LI LX T RT U Q KX"},
      {1, false, false, ""},
      {3, true, true, ""},
      {65537, true, false, "X Y I LI KX"},
  };
  for (const auto& each : cases) {
    build("");
    give(objects, each.type, each.parts, each.resources);
    EXPECT_EQ(run(), each.handled);
    for (const ApiPmId& id : import->handledNodes()) EXPECT_EQ(exists(id.text()), each.type < 3) << id.text();
  }
}

TEST_F(ImportTest, StudiesMergeTheirLists) {
  const std::string ours = studyOf("S", "s1 s2", "i1 i2") + shortcutTo("s1", "A", "S") +
                           shortcutTo("s2", "A", "S") + made("PmCompoundPart", "A", "Product", "<children/>");
  const std::string theirs =
      studyOf("T", "s2 s3 s3", "i2 i3 i4") + shortcutTo("s2", "B", "other") + shortcutTo("s3", "B", "T") +
      made("PmCompoundPart", "B", "Product", "<parents/><children/><layout>LB</layout>") +
      infoWith("i3", "l3") + made("PmStudyLayout", "l3", "PmStudyLayout");
  build(ours);
  give(theirs, 1, true, false);
  EXPECT_EQ(run(), "B i3 l3 s2 s3");
  EXPECT_EQ(handledRoots(), "B");
  expectLists({{"S/children", "s1 s2 s3 s3"}, {"S/info", "i1 i2 i3 i4"}});
  EXPECT_EQ(text("s3", "parent") + text("s2", "parent"), "SS")
      << "the shortcut that the study has stays as it is";
  EXPECT_EQ(import->shortcutToMarvekStudyInfoMap().find(ApiPmId("s3"))->value.text(), "i3");
  EXPECT_EQ(import->marvekStudyInfoToLayoutMap().find(ApiPmId("i3"))->value.text(), "l3");
  EXPECT_EQ(import->layoutToMarvekStudyInfoMap().find(ApiPmId("l3"))->value.text(), "i3");
  EXPECT_EQ(joined(import->relatedLayoutIds()), "l3 LB l3") << "once more for the shortcut";
  EXPECT_EQ(object(external, "S").xml(), studyOf("S", "s2", "i2"));
  EXPECT_EQ(at(object(external, "i3"), "NodeInfo/family").text(), "MarvekStudyInfo");

  // Where the study itself is taken over, its element is what the moves have left of the other one.
  build(ours);
  const ZelNode* theStudy = node("S");
  give(theirs, 0);
  EXPECT_EQ(run(), "S s2 s3 B i3 l3");
  EXPECT_EQ(node("S"), theStudy);
  EXPECT_EQ(list("S", "children"), "s2");
  EXPECT_EQ(joined(import->removedChildren()), "s1 s3 s3");
  EXPECT_TRUE(!exists("s1") && exists("s3"));
}

TEST_F(ImportTest, KnownObjectsTakeTheNewData) {
  std::string children;
  for (const std::string id : {"X", "Y", "Z", "V"})
    children += part(id, "A", "-") + layout("L" + id, id, "LA");
  build(part("A", "", "X Y Z V") + part("B", "", "") + children + layout("LA", "A", "NULL", "LX LY LZ LV") +
        layout("LB", "B") + made("PmShortcut", "K", "Shortcut", "<parent>old</parent>") +
        made("PmToolboxUsage", "U", "PmToolboxUsage", "<name>old</name>"));
  publish();
  const ZelNode* a = node("A");
  // X is gone, Y has moved to B, C is new below B, Z has no parent any more. V names A, but is taken before A
  // comes without it.
  give(part("B", "", "Y") + part("Z", "", "-") + part("V", "A", "-") + part("A", "", "") +
           part("Y", "B", "-") + part("C", "B", "-") + layout("LC", "C", "LB", "", 7, 7) +
           layout("LB", "B", "NULL", "", 5, 5) + made("PmShortcut", "K", "Shortcut", "<parent>new</parent>") +
           made("PmToolboxUsage", "U", "PmToolboxUsage", "<name>new</name>") + partWithoutId,
       0);
  EXPECT_EQ(run(), "B Z V A Y C LC LB K U - X");
  EXPECT_EQ(joined(import->removedChildren()), "X Y V");
  EXPECT_EQ(node("A"), a);
  EXPECT_FALSE(exists("X"));
  // Only what becomes a root leaves the layout.
  expectLists({{"A/children", ""}, {"B/children", "Y C"}, {"LA/children", "LX LY LV"}});
  EXPECT_EQ(parentsOf({"Y", "C", "Z", "V"}), "B B - -");
  EXPECT_EQ(absoluteX("LB"), 5) << "layouts are replaced";
  EXPECT_EQ(text("U", "name"), "new") << "so are toolbox usages";
  EXPECT_EQ(text("K", "parent"), "old") << "other objects without node stay as they are";
  EXPECT_EQ(roots(), "A B V Z");
  EXPECT_EQ(handledRoots(), "B Z V A");
  EXPECT_EQ(updated() + deleted(), "A") << "an object that becomes a root is an edit of its parent";
}

TEST_F(ImportTest, ANewParentCountsForItsChildren) {
  build(part("A", "", "X") + part("X", "A", "-") + part("Y", "", "-") + layout("LA", "A"));
  give(part("N", "A", "X Y M") + part("M", "N", "-") + layout("LN", "N", "LA"), 2);
  EXPECT_EQ(run(), "N M LN");
  EXPECT_EQ(list("A", "children"), "X N") << "the former parent still lists the child";
  EXPECT_EQ(parentsOf({"X", "Y", "M", "N"}), "N N N A");
  EXPECT_EQ(roots(), "A");
  EXPECT_EQ(handledRoots(), "N");
}

// An occurrence names no parents, but the equipment that holds it; and its prototype is known to the study.
TEST_F(ImportTest, AnOccurrenceStaysInItsEquipment) {
  const auto occurrence = [](const std::string& name) {
    return made("PmEquipmentPrototypeOccurrence", "O", "Resource",
                field("name", name) + field("prototype", "T") + field("parentPrototype", "E"));
  };
  build(made("PmEquipmentPrototype", "E", "EquipmentPrototype", listOf("children", "O")) +
        made("PmToolPrototype", "T", "ToolPrototype") + occurrence("old"));
  give(occurrence("new"), 0);
  EXPECT_EQ(run(), "O");
  EXPECT_EQ(text("O", "name"), "new");
  EXPECT_EQ(list("E", "children"), "O");
  EXPECT_EQ(parentOf("O"), "E");
  EXPECT_EQ(roots(), "");
  EXPECT_EQ(joined(import->relatedPrototypeIds()), "T");
}

TEST_F(ImportTest, PrototypesKeepTheirPaths) {
  session().systemRoot = "\\\\server\\root";
  const std::string ours = prototype("P") + repOf("P") + fileOf("P", "#\\old.cojt");
  // A known prototype takes the external file name.
  build(ours);
  give(prototype("P") + repOf("P") + fileOf("P", "#\\new.cojt"), 0);
  EXPECT_EQ(run(), "P RP FP");
  EXPECT_EQ(objects(), repOf("P") + fileOf("P", "#\\new.cojt") + prototype("P"));
  // Without one there it keeps its own, also under another representation.
  build(ours);
  give(made("PmPartPrototype", "P", "PartPrototype"), 0);
  EXPECT_EQ(run(), "P");
  EXPECT_EQ(text("P", "threeDRep") + " " + text("new1", "fileName"), "new2 #\\old.cojt");
  // An empty file name there leaves the prototype alone.
  build(ours);
  give(made("PmPartPrototype", "P", "PartPrototype", "<threeDRep>RP</threeDRep><name/>") + repOf("P") +
           fileOf("P", ""),
       0);
  EXPECT_EQ(run(), "P RP FP");
  EXPECT_EQ(objects(), ours);
  // A new one whose representation is still to come gets a new pair; the imported pair stays unused.
  build("");
  give(prototype("P") + repOf("P") + fileOf("P", "p.cojt"), 0);
  EXPECT_EQ(run(), "P RP FP");
  EXPECT_EQ(objects(), made("PmPartPrototype", "P", "PartPrototype", field("threeDRep", "new4")) +
                           bare("PmReferenceFile", "new3", "<fileName>p.cojt</fileName>") +
                           bare("Pm3DRep", "new4", "<file>new3</file>") + repOf("P") + fileOf("P", "p.cojt"));
}

TEST_F(ImportTest, WhatStopsARun) {
  const std::string equipment = made("PmEquipmentInstance", "E", "Resource", "<parents/><children/>");
  const std::string x = made("PmPartInstance", "X", "Product");
  const struct {
    std::string ours, theirs;
    std::uint32_t type;
    std::string outcome, message;
  } cases[] = {
      // An object of another class, also one that would not be taken.
      {made("Label", "N", "Label"), x + made("Note", "N", "Label") + made("PmPartInstance", "Y", "Product"),
       1, "false: X", "ZELXML_ATTEMPT_TO_CHANGE_OBJECT_TYPE 0 N Label Note"},
      {equipment, x, 1, "false: ", "ZEL_EXISTING_EQIPMENT_WILL_NOT_BE_MODIFIED 2 "},
      {"", x + equipment, 1, "false: ", "ZEL_EXISTING_EQIPMENT_WILL_NOT_BE_MODIFIED 2 "},
      {equipment, x, 65537, "X", ""},
      // A shortcut without parent.
      {"", made("PmShortcut", "K", "Shortcut") + x, 0, "false: K", ""},
      // Lists of the studies that are out of step, or missing.
      {"", studyOf("T", "s1 s2", "i1"), 0, "false: ", ""},
      {made("MarvekStudy", "S", "Study", "<children/>"), studyOf("T", "", ""), 0, "false: ", ""},
      // A lost child that the study does not have.
      {made("PmCompoundPart", "A", "Product", listOf("children", "gone")),
       made("PmCompoundPart", "A", "Product", "<children/>"), 0, "false: A", ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.theirs);
    build(each.ours);
    messages.clear();
    give(each.theirs, each.type, true, true);
    EXPECT_EQ(run(), each.outcome);
    EXPECT_EQ(message(), each.message);
  }
}

TEST_F(ImportTest, ADryRunCollectsAndLeavesTheObjectsAlone) {
  const std::string rest =
      part("A", "", "X") + instanceOf("X", "P") + prototype("P") + repOf("P") + fileOf("P", "old.cojt");
  build(studyOf("S", "s1", "i1") + rest);
  give(studyOf("T", "s2", "i2") + part("A", "", "") + instanceOf("X", "P") + instanceOf("Y", "P") +
           prototype("P") + repOf("P") + fileOf("P", "new.cojt"),
       65536);
  EXPECT_EQ(run(), "S A X Y P RP FP");
  EXPECT_EQ(handledRoots(), "S A");
  EXPECT_EQ(joined(import->removedChildren()), "");
  EXPECT_EQ(joined(import->relatedPrototypeIds()) + " " + joined(import->relatedTreeDRepIds()) + " " +
                joined(import->relatedReferenceFileIds()) + " " + joined(import->relatedLayoutIds()),
            "P RP FP LA LX");
  const std::string changed = std::string(rest).replace(rest.find("old.cojt"), 8, "new.cojt");
  EXPECT_EQ(objects(), studyOf("S", "s1 s2", "i1 i2") + changed)
      << "list items move, and file names are written";
}

TEST_F(ImportTest, LogsEachStep) {
  build(made("Label", "N", "Label"));
  give(prototype("P") + instanceOf("X", "P") + made("Label", "N", "Label") + shortcutTo("K", "O\"", "") +
           made("Label", "O&quot;", "Label"),
       1, true, false);
  std::string log;
  ApiLogLogger::instance()->setSink(
      [&log](std::string_view category, std::string_view, int, int level, std::string_view text) {
        if (category == "Infrastructure    " && level == 2) log.append(text).append("\n");
      });
  EXPECT_EQ(run(), "X P");
  ApiLogLogger::instance()->setSink(nullptr);
  const auto search = [](const std::string& id) {
    return "Start search node: " + id + " in document\nEnd search node: " + id + " in document\n";
  };
  const std::string shortcut = search("O\"") + search("O\"") + "K (Shortcut:NULL) SKIPPING\n";
  const std::string labels = "O\" (Label:NULL) SKIPPING\n";
  EXPECT_EQ(log, "P (PartPrototype:NULL) SKIPPING\nX (Product:NULL) CREATING\n" + search("P") +
                     "RELATED PROTOTYPE P\n" + search("P") + "N (Label:NULL) SKIPPING\n" + shortcut + labels +
                     "P (PartPrototype:NULL) CREATING\n" + search("RP") + search("RP") +
                     "X (Product:NULL) HANDLED\nX (Product:NULL) SKIPPING\nN (Label:NULL) SKIPPING\n" +
                     shortcut + labels);
}

// An import that takes a node of the PLC data inside an object away while it updates that object.
class ImportThatRemovesPlcData : public Import {
 public:
  using Import::Import;

 protected:
  bool updateCurrentNode() override {
    if (currentRealNodeId().text() == "A") zelWrapper()->removeAndDeleteNodeObject(ApiPmId("plc"));
    return Import::updateCurrentNode();
  }
};

TEST_F(ImportTest, NothingLeadsToANodeThatWentAway) {
  build(part("A", "", "R") + made("PmCompoundResource", "R", "Resource", "<parents/><children/>"));
  for (const char* id : {"plc", "kept"}) wrapper->insertNode(ApiPmId(id), (new ZelXmlSignal)->pmNode());
  // The walk ends on an object without id, so that R, which is not taken and goes, is the last one with node.
  give(part("A", "", "") + made("PmCompoundResource", "R", "Resource") + partWithoutId, 1, true, false);
  import = std::make_unique<ImportThatRemovesPlcData>(external, *settings, *wrapper, Import::ImportType{1});
  EXPECT_EQ(run(), "A - plc R");
  EXPECT_EQ(import->currentZelNode(), nullptr);
  EXPECT_NE(node("kept"), nullptr);
}

TEST_F(ImportTest, AnImportGivesWhatOpeningItsResultGives) {
  zelgen::StudyOptions options{.objects = 600, .shared = 0};
  buildText(zelgen::generateStudy(options));
  session().rootNodeId = wrapper->studyId();
  options.seed = 2;
  give("", 0);
  ASSERT_TRUE(external.loadXML(zelgen::generateStudy(options)));
  ASSERT_TRUE(import->execute());
  EXPECT_EQ(import->handledNodes().entries(), 600u);

  const auto state = [this] {
    ZelNodeList nodes;
    wrapper->getAllNodes(nodes);
    std::vector<std::string> lines = {roots()};
    for (const ZelNode* each : nodes) {
      const std::string id = textOf(each);
      lines.push_back(id + " " + std::to_string(each->type()) + " " + parentOf(id));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
  };
  const std::vector<std::string> living = state();
  EXPECT_GT(living.size(), 600u);
  ASSERT_TRUE(wrapper->build(false));
  EXPECT_EQ(state(), living);
}

}  // namespace
