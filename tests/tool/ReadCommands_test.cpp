#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/ToolRun.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;
using namespace tool_test;

TEST(ToolInfo, CountsAndListsWhatAStudyHolds) {
  const Folder folder;
  const Outcome info = run({"info", folder.write("small.xml", smallStudy), "--json"});
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

TEST(ToolInfo, MessagesOfTheBuildAreData) {
  const Folder folder;
  const std::string study =
      replaced(smallStudy, "<children/><labels>", "<children><item>B</item></children><labels>");
  const std::string named = replaced(study, "\"C\">", "\"C\"><name>Rack</name>");
  const Outcome info = run({"info", folder.write("shared.xml", named), "--json"});
  EXPECT_EQ(info.exitCode, 0);
  EXPECT_EQ(info.json()["messages"], json::parse(R"([{
    "code": "ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED", "severity": 3, "texts": ["Türgriff", "Rack"]}])"));
}

TEST(ToolInfo, AStudyWithoutObjectsIsEmptyNotWrong) {
  const Folder folder;
  const Outcome info = run({"info", folder.write("empty.xml", "<Data><Objects/></Data>"), "--json"});
  EXPECT_EQ(info.exitCode, 0) << info.err;
  EXPECT_EQ(info.json(), json::parse(R"({"studyId": "", "objects": 0, "nodes": 0, "plcInternalNodes": 0,
    "roots": [], "byType": {}, "byStringType": {}, "messages": []})"));
}

TEST(ToolTree, HoldsEveryRootWithAllBelow) {
  const Folder folder;
  const Outcome tree = run({"tree", folder.write("small.xml", smallStudy), "--json"});
  EXPECT_EQ(tree.exitCode, 0) << tree.err;
  json shown = tree.json();
  std::sort(shown.begin(), shown.end(), [](const json& a, const json& b) { return a["id"] < b["id"]; });
  EXPECT_EQ(shown, json::parse(R"([
    {"id": "A", "type": 3, "stringType": "PmCompoundPart", "name": "Body", "children": [
      {"id": "B", "type": 1, "stringType": "PmPartInstance", "name": "Türgriff", "children": []}]},
    {"id": "C", "type": 4, "stringType": "PmCompoundResource", "name": null, "children": []},
    {"id": "S", "type": 0, "stringType": "MarvekStudy", "name": "Line 1", "children": []}])"));
}

// A chain of compound parts C0, C1, ...; `last` names the child of the last one.
std::string chain(int length, std::string_view last) {
  std::string text = "<Data><Objects>";
  for (int i = 0; i < length; ++i) {
    const std::string child = i + 1 < length ? "C" + std::to_string(i + 1) : std::string(last);
    text += "<PmCompoundPart ExternalId='C" + std::to_string(i) + "'><name>n</name><children>" +
            (child.empty() ? "" : "<item>" + child + "</item>") +
            "</children><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>";
  }
  return text + "</Objects></Data>";
}

// Ids from the top of a tree whose nodes have one child at most.
std::vector<std::string> idsDown(const json& tree) {
  std::vector<std::string> ids;
  for (const json* level = &tree; !level->empty(); level = &(*level)[0]["children"])
    ids.push_back((*level)[0]["id"]);
  return ids;
}

TEST(ToolTree, DepthAndRootLimitIt) {
  const Folder folder;
  const std::string file = folder.write("chain.xml", chain(4, ""));
  const struct {
    std::vector<std::string> options;
    std::vector<std::string> ids;
  } cases[] = {
      {{}, {"C0", "C1", "C2", "C3"}},   {{"--depth", "1"}, {"C0"}},
      {{"--depth", "2"}, {"C0", "C1"}}, {{"--depth", "9"}, {"C0", "C1", "C2", "C3"}},
      {{"--root", "C2"}, {"C2", "C3"}}, {{"--root", "C1", "--depth", "2"}, {"C1", "C2"}},
  };
  for (const auto& [options, ids] : cases) {
    std::vector<std::string> arguments = {"tree", file, "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(idsDown(run(arguments).json()), ids) << testing::PrintToString(options);
  }
}

TEST(ToolTree, ACycleIsWalkedOnce) {
  const Folder folder;
  const std::string file = folder.write("cycle.xml", chain(3, "C0"));
  EXPECT_EQ(idsDown(run({"tree", file, "--json", "--root", "C1"}).json()),
            (std::vector<std::string>{"C1", "C2", "C0", "C1"}));
  const Outcome text = run({"tree", file, "--root", "C1"});
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(text.out,
            "n  PmCompoundPart  C1\n"
            "└─ n  PmCompoundPart  C2\n"
            "   └─ n  PmCompoundPart  C0\n"
            "      └─ n  PmCompoundPart  C1  ↺ stands under itself\n");
}

TEST(ToolTree, DepthCostsNoStack) {
  const Folder folder;
  constexpr int levels = 20000;
  const std::string file = folder.write("deep.xml", chain(levels, ""));
  const Outcome tree = run({"tree", file, "--json"}, {}, 512);
  EXPECT_EQ(tree.exitCode, 0) << tree.err;
  EXPECT_EQ(idsDown(tree.json()).size(), static_cast<std::size_t>(levels));
  const Outcome text = run({"tree", file}, {}, 512);
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(std::count(text.out.begin(), text.out.end(), '\n'), levels);
}

TEST(ToolTree, TextDrawsBranches) {
  const Folder folder;
  const std::string study =
      replaced(smallStudy, "<children><item>B</item></children><layout>LA",
               "<children><item>B</item><item>D</item><item>E</item></children><layout>LA");
  const std::string full =
      replaced(study, "  </Objects>",
               "<PmCompoundPart ExternalId='D'><name>two\nlines</name><children><item>F</item></children>"
               "<NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>"
               "<PmPartInstance ExternalId='E'><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>"
               "<PmPartInstance "
               "ExternalId='F'><name>F</name><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>"
               "</Objects>");
  EXPECT_EQ(run({"tree", folder.write("a.xml", full), "--root", "A"}).out,
            "Body  PmCompoundPart  A\n"
            "├─ Türgriff  PmPartInstance  B\n"
            "├─ two␊lines  PmCompoundPart  D\n"
            "│  └─ F  PmPartInstance  F\n"
            "└─ (no name)  PmPartInstance  E\n");
}

TEST(ToolShow, TellsEverythingAndNullForTheRest) {
  const Folder folder;
  const std::string file = folder.write("small.xml", smallStudy);
  const struct {
    std::string id;
    std::string_view shown;
  } cases[] = {
      {"A", R"({"id": "A", "type": 3, "stringType": "PmCompoundPart", "name": "Body", "caption": "Main body",
        "description": "Painted \"white\" & dry", "parentId": null,
        "interfaces": [1, 2, 15, 18, 19, 22, 30, 103, 133],
        "location": {"x": 10, "y": 20, "z": 30, "roll": 0, "pitch": 0, "yaw": 0},
        "absoluteLocation": {"x": 10, "y": 20, "z": 30, "roll": 0, "pitch": 0, "yaw": 0},
        "children": ["B"], "labels": [], "shortcutId": "SA"})"},
      {"B", R"({"id": "B", "type": 1, "stringType": "PmPartInstance", "name": "Türgriff", "caption": null,
        "description": null, "parentId": "A", "interfaces": [1, 13, 18, 19, 106, 133],
        "location": {"x": 1, "y": 2, "z": 3, "roll": 0, "pitch": 0, "yaw": 0.5},
        "absoluteLocation": {"x": 11, "y": 22, "z": 33, "roll": 0, "pitch": 0, "yaw": 0.5},
        "children": null, "labels": [], "shortcutId": null})"},
      {"C", R"({"id": "C", "type": 4, "stringType": "PmCompoundResource", "name": null, "caption": null,
        "description": null, "parentId": null, "interfaces": [1, 2, 16, 18, 19, 23, 30, 103, 133],
        "location": null, "absoluteLocation": null, "children": [], "labels": ["L"], "shortcutId": null})"},
  };
  for (const auto& [id, shown] : cases)
    EXPECT_EQ(run({"show", file, id, "--json"}).json(), json::parse(shown));
}

TEST(ToolShow, TextLeavesOutWhatIsNotThere) {
  const Folder folder;
  EXPECT_EQ(run({"show", folder.write("small.xml", smallStudy), "B"}).out,
            "id                B\n"
            "type              1 part instance\n"
            "stringType        PmPartInstance\n"
            "name              Türgriff\n"
            "parentId          A\n"
            "interfaces        1 Physical, 13 Instance, 18 VorLabelsContainer, 19 VorNode, 106 VorInstance, "
            "133 GlobalAttachment\n"
            "location          x 1  y 2  z 3   roll 0  pitch 0  yaw 0.5\n"
            "absoluteLocation  x 11  y 22  z 33   roll 0  pitch 0  yaw 0.5\n"
            "labels            none\n");
}

TEST(ToolSession, MembersAreSetAndSaved) {
  const Folder folder;
  const std::string file = folder.write("small.xml", smallStudy);
  ASSERT_EQ(run({"edit", file, "-", "-o", folder.path("new.xml"), "--session", "userName=grace", "--session",
                 "variantFilter=7"})
                .exitCode,
            0);
  const std::string expected =
      replaced(replaced(smallStudy, ">ada<", ">grace<"), "<VariantFilter>0", "<VariantFilter>7");
  EXPECT_EQ(folder.read("new.xml"), expected);
}

TEST(ToolLog, IsSilentUnlessAskedFor) {
  const Folder folder;
  const std::string file = folder.write("small.xml", smallStudy);
  EXPECT_EQ(run({"info", file}).err, "");
  EXPECT_THAT(run({"info", file, "--log", "trace"}).err, HasSubstr("ZelXml Build - Start"));
  EXPECT_THAT(run({"--log", "2", "info", file}).err, HasSubstr("ZelXml Build - Start"));
  EXPECT_EQ(run({"info", file, "--log", "error"}).err, "");
}

// Every way to get it wrong: its exit code, and what standard error says first.
TEST(Tool, FailuresAreToldApart) {
  const Folder folder;
  const std::string file = folder.write("small.xml", smallStudy);
  const std::string broken = folder.write("broken.xml", "<Data>\n  <Objects></Data>");
  const std::string other = folder.write("other.xml", "<Data><Things/></Data>");
  const std::string none = folder.path("none.xml"), script = folder.write("script", "");
  const struct {
    std::vector<std::string> arguments;
    int exitCode;
    std::string error;
  } cases[] = {
      {{}, 2, "a command is missing"},
      {{"fly"}, 2, "The following argument was not expected: fly"},
      {{"info"}, 2, "FILE is required"},
      {{"info", file, file}, 2, "The following argument was not expected"},
      {{"info", file, "--depth", "1"}, 2, "The following arguments were not expected"},
      {{"info", none}, 2, none + ": cannot open the file"},
      {{"info", folder.path("")}, 2, folder.path("") + ": cannot read the file"},
      {{"info", broken}, 2, broken + ":2:"},
      {{"info", other}, 2, other + ": no study"},
      {{"info", file, "--log", "3"}, 2, "--log: no such level: 3"},
      {{"info", file, "--session", "fly=1"}, 2, "--session: unknown key \"fly\""},
      {{"info", file, "--session", "mode=x"}, 2, "--session: mode must be a whole number"},
      {{"tree", file, "--depth", "0"}, 2, "--depth"},
      {{"tree", file, "--depth", "x"}, 2, "--depth: Value x"},
      {{"tree", file, "--root", "X"}, 1, file + ": no object has the id \"X\""},
      {{"tree", file, "--root", ""}, 1, file + ": no object has the id \"\""},
      {{"show", file}, 2, "ID is required"},
      {{"show", file, "\" or 1=1"}, 1, file + ": no object has the id \"\" or 1=1\""},
      {{"show", file, "LSA"}, 1, file + ": PmStudyLayout \"LSA\", line 7, is an object without a node"},
      {{"edit", file}, 2, "SCRIPT is required"},
      {{"edit", none, script}, 2, none + ": cannot open the file"},
      {{"edit", file, none}, 2, none + ": cannot read the script: No such file or directory"},
      {{"edit", file, folder.path("")}, 2, folder.path("") + ": cannot read the script: Is a directory"},
      {{"edit", file, script, "-o", none, "--in-place"}, 2, "-o excludes --in-place"},
      {{"edit", file, script, "-o", ""}, 2, "-o: a file name is empty"},
      {{"edit", file, script, "-o", script}, 2, "-o " + script + " would overwrite " + script},
      {{"edit", file, script, "--out", file}, 2, "--out " + file + " would overwrite " + file},
      {{"edit", file, script, "-o", none, "--out", none}, 2, "--out " + none + " would overwrite " + none},
  };
  for (const auto& [arguments, exitCode, error] : cases) {
    const Outcome failed = run(arguments);
    EXPECT_EQ(failed.exitCode, exitCode) << testing::PrintToString(arguments);
    EXPECT_THAT(failed.err, StartsWith("zelstudy: " + error)) << testing::PrintToString(arguments);
    EXPECT_EQ(failed.out, "") << testing::PrintToString(arguments);
  }
  EXPECT_EQ(folder.files(), (std::vector<std::string>{"broken.xml", "other.xml", "script", "small.xml"}));
}

TEST(Tool, HelpAndVersionAreNoFailures) {
  for (const char* command : {"info", "tree", "show", "edit"}) {
    const Outcome help = run({command, "--help"});
    EXPECT_EQ(help.exitCode, 0) << command;
    EXPECT_THAT(help.out, HasSubstr("Example: ")) << command;
    EXPECT_THAT(run({"--help"}).out, HasSubstr(std::string("\n  ") + command + " ")) << command;
  }
  const Outcome version = run({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out, "zelstudy " ZELSTUDY_VERSION "\n");
}

TEST(Tool, OutputThatCannotBeWrittenIsAFailure) {
  const Folder folder;
  const std::string command = ZELSTUDY_PROGRAM " info " + folder.write("small.xml", smallStudy) +
                              " > /dev/full 2> " + folder.path("err");
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_EQ(folder.read("err"), "zelstudy: standard output cannot be written\n");
}

}  // namespace
