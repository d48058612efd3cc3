#include <map>

#include "StudyText.h"
#include "tool/ToolRun.h"

namespace {

using nlohmann::json;
using testing::StartsWith;
using namespace document_test;
using namespace tool_test;
namespace fs = std::filesystem;
using ToolRead = StudyTest;
using Strings = std::vector<std::string>;

TEST_F(ToolRead, CountsAndListsWhatAStudyHolds) {
  const Outcome info = run({"info", file, "--json"});
  EXPECT_EQ(info.exitCode, 0) << info.err;
  EXPECT_EQ(info.err, "");
  json shown = info.json();
  // The order of roots is that of the registry's buckets, which is no matter of the program.
  std::sort(shown["roots"].begin(), shown["roots"].end());
  EXPECT_EQ(shown, json::parse(R"({
    "studyId": "S", "objects": 10, "nodes": 5, "plcInternalNodes": 0, "roots": ["A", "C", "S"],
    "byType": {"0": 1, "1": 1, "3": 1, "4": 1, "10": 1},
    "byStringType": {"Label": 1, "MarvekStudy": 1, "PmCompoundPart": 1, "PmCompoundResource": 1,
                     "PmPartInstance": 1},
    "messages": []})"));
}

TEST_F(ToolRead, MessagesOfTheBuildAreData) {
  const std::string named =
      replaced(smallStudy, {{"<children/><labels>", "<children><item>B</item></children><labels>"},
                            {"\"C\">", "\"C\"><name>Rack</name>"}});
  const Outcome info = run({"info", folder.write("shared.xml", named), "--json"});
  EXPECT_EQ(info.exitCode, 0);
  EXPECT_EQ(info.json()["messages"], json::parse(R"([{
    "code": "ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED", "severity": 3, "texts": ["Türgriff", "Rack"]}])"));
}

TEST_F(ToolRead, AnEmptyEntryOfAListIsNull) {
  const std::string study = folder.write(
      "empty.xml", replaced(smallStudy, "<children><item>B</item>", "<children><item/><item>B</item>"));
  EXPECT_EQ(run({"show", study, "A", "--json"}).json()["children"], json({nullptr, "B"}));
  const Outcome text = run({"show", study, "A"});
  EXPECT_EQ(text.exitCode, 0) << text.err;
  EXPECT_THAT(text.out, testing::ContainsRegex("children +-\n +B\n"));
}

// A chain of compound parts C0, C1, ...; `last` names the child of the last one.
std::string chain(int length, std::string_view last) {
  std::string text;
  for (int i = 0; i < length; ++i) {
    const std::string child = i + 1 < length ? "C" + std::to_string(i + 1) : std::string(last);
    text += made("PmCompoundPart", "C" + std::to_string(i), "Product",
                 "<name>n</name>" + listOf("children", child));
  }
  return dataOf(text);
}

// Ids from the top of a tree whose nodes have one child at most.
std::vector<std::string> idsDown(const json& tree) {
  std::vector<std::string> ids;
  for (const json* level = &tree; !level->empty(); level = &(*level)[0]["children"])
    ids.push_back((*level)[0]["id"]);
  return ids;
}

TEST_F(ToolRead, DepthAndRootLimitIt) {
  const std::string four = folder.write("chain.xml", chain(4, ""));
  EXPECT_EQ(idsDown(run({"tree", four, "--json", "--depth", "2"}).json()), (Strings{"C0", "C1"}));
  EXPECT_EQ(idsDown(run({"tree", four, "--json", "--root", "C1", "--depth", "2"}).json()),
            (Strings{"C1", "C2"}));
}

TEST_F(ToolRead, ACycleIsWalkedOnce) {
  const std::string cycle = folder.write("cycle.xml", chain(3, "C0"));
  const Outcome text = run({"tree", cycle, "--root", "C1"});
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(text.out,
            "n  PmCompoundPart  C1\n"
            "└─ n  PmCompoundPart  C2\n"
            "   └─ n  PmCompoundPart  C0\n"
            "      └─ n  PmCompoundPart  C1  ↺ stands under itself\n");
}

TEST_F(ToolRead, DepthCostsNoStack) {
  constexpr int levels = 20000;
  const std::string deep = folder.write("deep.xml", chain(levels, ""));
  const Outcome tree = run({"tree", deep, "--json"}, {}, 512);
  EXPECT_EQ(tree.exitCode, 0) << tree.err;
  EXPECT_EQ(idsDown(tree.json()).size(), static_cast<std::size_t>(levels));
  const Outcome text = run({"tree", deep}, {}, 512);
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(std::count(text.out.begin(), text.out.end(), '\n'), levels);
}

TEST_F(ToolRead, TextDrawsBranches) {
  const std::string full =
      replaced(smallStudy,
               {{"<children><item>B</item></children><layout>LA", listOf("children", "D B") + "<layout>LA"},
                {"  </Objects>",
                 made("PmCompoundPart", "D", "Product", "<name>two\nlines</name>" + listOf("children", "F")) +
                     made("PmPartInstance", "F", "Product") + "</Objects>"}});
  EXPECT_EQ(run({"tree", folder.write("a.xml", full), "--root", "A"}).out,
            "Body  PmCompoundPart  A\n"
            "├─ two␊lines  PmCompoundPart  D\n"
            "│  └─ (no name)  PmPartInstance  F\n"
            "└─ Türgriff  PmPartInstance  B\n");
}

// The study shows A elsewhere than its layout stands; B stands at (1, 2, 3) in A, D in no study.
TEST_F(ToolRead, PlacesInTheStudyAreComposedFromTheShownObjectDown) {
  const std::string study = folder.write(
      "places.xml",
      replaced(smallStudy, {{"PmStudyLayout ExternalId=\"LSA\"><location><item>10.000000</item>",
                             "PmStudyLayout ExternalId=\"LSA\"><location><item>500.000000</item>"},
                            {"  </Objects>", part("D", "", "") + layout("LD", "D") + "</Objects>"}}));
  const auto place = [](const json& of) { return of.is_null() ? -1 : of["x"].get<double>(); };
  const json b = run({"show", study, "B", "--json", "--places"}).json();
  EXPECT_EQ(place(b["studyLocation"]), 501);
  EXPECT_EQ(place(b["absoluteLocation"]), 11);
  EXPECT_EQ(b["studyLocation"]["yaw"], 0.5);
  ASSERT_EQ(b["places"].size(), 2u);
  EXPECT_EQ(b["places"][0]["id"], "A");
  EXPECT_EQ(place(b["places"][0]["location"]), 500);
  EXPECT_EQ(place(b["places"][1]["location"]), 1);
  EXPECT_EQ(place(run({"show", study, "D", "--json", "--places"}).json()["studyLocation"]), -1);

  const json all = run({"tree", study, "--json", "--places"}).json();
  std::map<std::string, double> told;
  for (const json& root : all) {
    told[root["id"]] = place(root["studyLocation"]);
    for (const json& child : root["children"]) told[child["id"]] = place(child["studyLocation"]);
  }
  EXPECT_EQ(told, (std::map<std::string, double>{{"S", -1}, {"A", 500}, {"B", 501}, {"C", -1}, {"D", -1}}));
  EXPECT_EQ(place(run({"tree", study, "--json", "--places", "--root", "B"}).json()[0]["studyLocation"]), 501);
  EXPECT_NE(run({"tree", study, "--places"}).out.find("B  x 501  y 22  z 33"), std::string::npos);

  // Placing what a study shows moves it and all below it there, and nowhere else.
  EXPECT_EQ(run({"edit", study, folder.write("e", "place A 600 0 0 0 0 0\n"), "--in-place"}).exitCode, 0);
  const json moved = run({"show", study, "B", "--json", "--places"}).json();
  EXPECT_EQ(place(moved["studyLocation"]), 601);
  EXPECT_EQ(place(moved["absoluteLocation"]), 11);
}

TEST_F(ToolRead, TellsEverythingAndNullForTheRest) {
  EXPECT_EQ(run({"show", file, "A", "--json"}).json(), json::parse(R"({
      "id": "A", "type": 3, "stringType": "PmCompoundPart", "name": "Body", "caption": "Main body",
      "description": "Painted \"white\" & dry", "parentId": null,
      "interfaces": [1, 2, 15, 18, 19, 22, 30, 103, 133],
      "location": {"x": 10, "y": 20, "z": 30, "roll": 0, "pitch": 0, "yaw": 0},
      "absoluteLocation": {"x": 10, "y": 20, "z": 30, "roll": 0, "pitch": 0, "yaw": 0},
      "children": ["B"], "labels": [], "shortcutId": "SA",
      "fields": {"name": "Body", "comment": "Painted \"white\" & dry", "caption": "Main body", "parents": [],
                 "children": ["B"], "layout": "LA"}})"));
}

TEST_F(ToolRead, TextLeavesOutWhatIsNotThere) {
  EXPECT_EQ(run({"show", file, "B"}).out,
            "id                B\n"
            "type              1 part instance\n"
            "stringType        PmPartInstance\n"
            "name              Türgriff\n"
            "parentId          A\n"
            "interfaces        1 Physical, 13 Instance, 18 VorLabelsContainer, 19 VorNode, 106 VorInstance, "
            "133 GlobalAttachment\n"
            "location          x 1  y 2  z 3   roll 0  pitch 0  yaw 0.5\n"
            "absoluteLocation  x 11  y 22  z 33   roll 0  pitch 0  yaw 0.5\n"
            "labels            none\n"
            "fields            name: Türgriff\n"
            "                  parents: A\n"
            "                  layout: LB\n"
            "                  prototype: -\n");
}

TEST_F(ToolRead, MembersAreSetAndSaved) {
  ASSERT_EQ(run({"edit", file, "-", "-o", folder.path("new.xml"), "--session", "userName=grace", "--session",
                 "variantFilter=7"})
                .exitCode,
            0);
  EXPECT_EQ(folder.read("new.xml"),
            replaced(smallStudy, {{">ada<", ">grace<"}, {"<VariantFilter>0", "<VariantFilter>7"}}));
}

TEST_F(ToolRead, PrototypesAreListedInDocumentOrder) {
  folder.write("lib/T\xC3\xBCr/b.jt", "");
  const std::string geometry = folder.write("lib/T\xC3\xBCr/a.jt", "");
  fs::last_write_time(geometry,
                      std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::hours(24))));
  const std::string study = folder.write("s.xml", R"(<Data><Objects>
    <PmPartPrototypeUsage ExternalId="U"><uses>P</uses><NodeInfo><family>PartPrototypeUsage</family></NodeInfo></PmPartPrototypeUsage>
    <PmToolPrototype ExternalId="T"><NodeInfo><family>ToolPrototype</family></NodeInfo></PmToolPrototype>
    <PmPartPrototype ExternalId="P"><name>Door</name><weight>1.5</weight><threeDRep>R</threeDRep><NodeInfo><family>PartPrototype</family></NodeInfo></PmPartPrototype>
    <Pm3DRep ExternalId="R"><file>F</file></Pm3DRep>
    <PmReferenceFile ExternalId="F"><fileName>#\Tür</fileName></PmReferenceFile>
    </Objects></Data>)");
  const std::string root = folder.path("lib"), path = root + "\\T\xC3\xBCr";
  const Outcome list = run({"prototypes", study, "--json", "--session", "systemRoot=" + root});
  EXPECT_EQ(list.exitCode, 0) << list.err;
  json expected = json::parse(R"([
    {"id": "U", "type": 11, "class": "PmPartPrototypeUsage", "uses": "P"},
    {"id": "T", "type": 8, "class": "PmToolPrototype", "name": null, "weight": null, "storedName": null,
     "path": null, "jtFile": null, "modificationTime": null},
    {"id": "P", "type": 7, "class": "PmPartPrototype", "name": "Door", "weight": 1.5, "storedName": "#\\Tür",
     "modificationTime": 86400}])");
  expected[2]["path"] = path;
  expected[2]["jtFile"] = path + "/a.jt";
  EXPECT_EQ(list.json(), expected);
}

// Every way to get it wrong: its exit code, and what standard error says first.
TEST_F(ToolRead, FailuresAreToldApart) {
  const std::string broken = folder.write("broken.xml", "<Data>\n  <Objects></Data>");
  const std::string other = folder.write("other.xml", "<Data><Things/></Data>");
  const std::string page = folder.write("page.xml", "<html/>");
  const std::string none = folder.path("none.xml"), script = folder.write("script", "");
  const std::string overwritten = " would overwrite ";
  const struct {
    std::vector<std::string> arguments;
    int exitCode;
    std::string error;
  } cases[] = {
      {{}, 2, "a command is missing"},
      {{"info", none}, 2, none + ": cannot open the file"},
      {{"info", folder.path("")}, 2, folder.path("") + ": cannot read the file"},
      {{"info", broken}, 2, broken + ":2:"},
      {{"info", other}, 2, other + ": no study: there is no Objects under its root element Data"},
      {{"tree", page}, 2, page + ": no study: its root element is html, not Data with Objects in it"},
      {{"info", file, "--log", "3"}, 2, "--log: no such level: 3"},
      {{"info", file, "--session", "fly"}, 2, "--session: \"fly\" is not KEY=VALUE"},
      {{"info", file, "--session", "fly=1"}, 2, "--session: unknown key \"fly\"; the keys are "},
      {{"info", file, "--session", "mode=+-1"}, 2, "--session: mode must be a whole number of 32 bits, not"},
      {{"info", file, "--session", "variantFilter=2147483648"},
       2,
       "--session: variantFilter must be a whole"},
      {{"info", file, "--session", "localDocument=yes"}, 2, "--session: localDocument must be true or false"},
      {{"tree", file, "--root", "X"}, 1, file + ": no object has the id \"X\""},
      {{"show", file, "\" or 1=1"}, 1, file + ": no object has the id \"\" or 1=1\""},
      {{"show", file, "LSA"}, 1, file + ": PmStudyLayout \"LSA\", line 7, is an object without a node"},
      {{"edit", file, none}, 2, none + ": cannot read the script: No such file or directory"},
      {{"edit", file, script, "-o", none, "--in-place"}, 2, "-o excludes --in-place"},
      {{"edit", file, script, "-o", script}, 2, "-o " + script + overwritten + script},
      {{"edit", file, script, "-o", none, "--out", none}, 2, "--out " + none + overwritten + none},
      {{"import", file, other}, 2, "import: say what to take"},
      {{"import", file, other, "--all", "--parts"}, 2, "--all excludes --parts"},
      {{"import", file, other, "--all", "-o", other}, 2, "-o " + other + overwritten + other},
      {{"import", file, other, "--all"}, 2, other + ": no external document"},
      {{"check", other}, 2, other + ": no study"},
      {{"check", "--explain", "nonsense"}, 2, ""},
      {{"diff", file, none}, 2, none + ": cannot open the file"},
      {{"diff", other, file}, 2, other + ": no study"},
  };
  for (const auto& [arguments, exitCode, error] : cases) {
    const Outcome failed = run(arguments);
    EXPECT_EQ(failed.exitCode, exitCode) << testing::PrintToString(arguments);
    EXPECT_THAT(failed.err, StartsWith("zelstudy: " + error)) << testing::PrintToString(arguments);
    EXPECT_EQ(failed.out, "") << testing::PrintToString(arguments);
  }
  EXPECT_EQ(folder.files(),
            (std::vector<std::string>{"broken.xml", "other.xml", "page.xml", "script", "small.xml"}));
}

TEST_F(ToolRead, OutputThatCannotBeWrittenIsAFailure) {
  const std::string command =
      "'" ZELSTUDY_PROGRAM "' info '" + file + "' > /dev/full 2> '" + folder.path("err") + "'";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_EQ(folder.read("err"), "zelstudy: standard output cannot be written\n");
}

}  // namespace
