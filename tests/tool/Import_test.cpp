#include "StudyGenerator.h"
#include "tool/ToolRun.h"

using namespace tool_test;
using nlohmann::json;

namespace {

// What another study gives to the small one: a part below its compound part, an instance with a prototype,
// and the compound itself without its former child.
constexpr std::string_view otherStudy = R"(<Data><Objects>
<MarvekStudy ExternalId="S2"><children/><info/><NodeInfo><family>Study</family></NodeInfo></MarvekStudy>
<PmCompoundPart ExternalId="A"><name>Body</name><parents/><children/><layout>LA</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>
<PmPartInstance ExternalId="X"><name>Sill</name><parents><item>A</item></parents><layout>LX</layout><prototype>P</prototype><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>
<PmPartPrototype ExternalId="P"><threeDRep>RP</threeDRep><NodeInfo><family>PartPrototype</family></NodeInfo></PmPartPrototype>
<Pm3DRep ExternalId="RP"><file>FP</file><NodeInfo><family>ExternalDocument</family></NodeInfo></Pm3DRep>
<PmReferenceFile ExternalId="FP"><fileName>p.cojt</fileName><NodeInfo><family>PmReferenceFile</family></NodeInfo></PmReferenceFile>
<PmCompoundResource ExternalId="C"><parents/><children/><NodeInfo><family>Resource</family></NodeInfo></PmCompoundResource>
</Objects></Data>)";

class ImportCommandTest : public StudyTest {
 protected:
  const std::string other = folder.write("other.xml", otherStudy);
};

TEST_F(ImportCommandTest, TakesPartsAndSavesTheStudy) {
  const Outcome taken = run({"import", file, other, "--parts", "-o", folder.path("new.xml"), "--json"});
  EXPECT_EQ(taken.exitCode, 0);
  EXPECT_EQ(taken.err, "");
  EXPECT_EQ(taken.json(), json::parse(R"({"result": true, "handled": ["A", "X", "P", "RP", "FP"],
    "handledRoots": ["A"], "removed": ["B"],
    "related": {"prototypes": ["P"], "representations": ["RP"], "files": ["FP"], "layouts": ["LA", "LX"]},
    "messages": [], "roots": ["S", "C", "A"], "parents": {"X": "A"}})"));
  EXPECT_NE(folder.read("new.xml").find("<name>Sill</name>"), std::string::npos);
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
}

TEST_F(ImportCommandTest, SavesNothingUnlessAskedTo) {
  const Outcome dry = run({"import", file, other, "--all", "--dry-run", "--json", "--log", "2"});
  EXPECT_EQ(dry.exitCode, 0);
  EXPECT_EQ(dry.json()["handled"], json({"R", "A", "X", "P", "RP", "FP", "C"}));
  EXPECT_EQ(dry.json()["parents"], json({{"B", "A"}}));
  EXPECT_NE(dry.err.find("Infrastructure: X (Product:NULL) CREATING ("), std::string::npos) << dry.err;
  const Outcome loose = run({"import", file, other, "--selected", "--session", "rootNodeId="});
  EXPECT_EQ(loose.exitCode, 0);
  EXPECT_NE(loose.err.find("the study is not saved"), std::string::npos) << loose.err;
  // A stopped run tells why, and saves nothing.
  const std::string changed =
      folder.write("changed.xml", replaced(otherStudy, {{"<PmCompoundResource", "<PmToolInstance"},
                                                        {"</PmCompoundResource", "</PmToolInstance"}}));
  const Outcome stopped = run({"import", file, changed, "--resources", "--in-place", "--json"});
  EXPECT_EQ(stopped.exitCode, 1);
  EXPECT_EQ(stopped.json()["messages"][0]["texts"], json({"C", "PmCompoundResource", "PmToolInstance"}));
  EXPECT_NE(stopped.err.find("ZELXML_ATTEMPT_TO_CHANGE_OBJECT_TYPE"), std::string::npos);
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
}

// Taking a study into itself changes no object: file names stay relative to a root that nobody named, and the
// layouts of shared parts hold debris at most.
TEST_F(ImportCommandTest, AStudyTakenIntoItselfStaysAsItIs) {
  zelgen::StudyOptions options;
  options.objects = 4000;
  options.shared = 20;
  const std::string studies[] = {ZELXML_SOURCE_DIR "/examples/cell/cell.xml",
                                 folder.write("made.xml", zelgen::generateStudy(options))};
  for (const std::string& study : studies) {
    const std::string taken = folder.path("taken.xml");
    const Outcome outcome = run({"import", study, study, "--all", "-o", taken});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    const Outcome diff = run({"diff", study, taken});
    EXPECT_EQ(diff.out.find("fileName"), std::string::npos) << diff.out;
    const json check = run({"check", "--strict", taken, "--json"}).json();
    EXPECT_EQ(check["errors"], 0) << check["files"];
    EXPECT_EQ(diff.exitCode, check["debris"] == 0 ? 0 : diff.exitCode) << diff.out;
    EXPECT_EQ(check["debris"] != 0, study == studies[1]);
  }
}

}  // namespace
