#include "StudyText.h"
#include "tool/ToolRun.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using namespace document_test;
using namespace tool_test;
using ToolEdit = StudyTest;

// The saved study and the change commands of one operation, whole.
TEST_F(ToolEdit, RenamesAndDescribes) {
  const Outcome edit = run({"edit", file, "-", "-o", folder.path("new.xml"), "--out", folder.path("out.xml")},
                           "rename A \"New \\\"body\\\"\"\n"
                           "describe B \"two\\nlines\"\n");
  EXPECT_EQ(edit.exitCode, 0) << edit.err;
  EXPECT_EQ(edit.err, "");
  EXPECT_EQ(json(edit.lines()), json::parse(R"([
      {"line": 1, "op": "rename", "result": true, "id": "A", "name": "New \"body\""},
      {"line": 2, "op": "describe", "result": true, "id": "B", "description": "two\nlines"}])"));
  const std::string family = familyOf("Product"), comment = "<comment>two\nlines</comment>";
  EXPECT_EQ(folder.read("new.xml"),
            replaced(smallStudy, {{"\"A\"><name>Body<", "\"A\"><name>New \"body\"<"},
                                  {"<prototype/>" + family + "</PmPartInstance>",
                                   "<prototype/>" + family + comment + "</PmPartInstance>"}}));
  EXPECT_EQ(folder.read("out.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
                updates(bare("PmCompoundPart", "A",
                             "<parents/><children><item>B</item></children><layout>LA</layout>" + family +
                                 "<name>New \"body\"</name>") +
                        bare("PmPartInstance", "B",
                             "<parents><item>A</item></parents><layout>LB</layout><prototype/>" + family +
                                 comment)));
}

TEST_F(ToolEdit, PlacesMovesAndCreates) {
  const Outcome edit = run({"edit", file, "-", "--in-place"},
                           "\xEF\xBB\xBF# made by hand\r\ncreate 3 N A\r\n"
                           "move B N\n"
                           "place B +4 0.5e1 6 0 0 0.25 # relative to N, which stands at the origin\n");
  EXPECT_EQ(edit.exitCode, 0) << edit.err;
  EXPECT_EQ(json(edit.lines()), json::parse(R"([
      {"line": 2, "op": "create", "result": true, "id": "N", "type": 3, "stringType": "PmCompoundPart", "parentId": "A"},
      {"line": 3, "op": "move", "result": true, "id": "B", "parentId": "N"},
      {"line": 4, "op": "place", "result": true, "id": "B",
       "absoluteLocation": {"x": 4, "y": 5, "z": 6, "roll": 0, "pitch": 0, "yaw": 0.25}}])"));
  EXPECT_EQ(run({"show", file, "N", "--json"}).json()["children"], json{"B"});
  EXPECT_EQ(run({"show", file, "B", "--json"}).json()["location"],
            json::parse(R"({"x": 4, "y": 5, "z": 6, "roll": 0, "pitch": 0, "yaw": 0.25})"));
}

TEST_F(ToolEdit, RefusalsCarryTheirReason) {
  const struct {
    std::string script, reason;
  } cases[] = {
      {"rename X Y", "no object has the id \"X\""},
      {"rename LA Y", "PmLayout \"LA\", line 9, is an object without a node"},
      {"rename C Y", "PmCompoundResource \"C\", line 12, has no name that can be set"},
      {"rename A \x01", "the text holds a character that XML cannot hold"},
      {"place C 1 2 3 0 0 0",
       "PmCompoundResource \"C\", line 12, could not be placed: its layout is missing or incomplete"},
      {"move A B", "PmPartInstance \"B\", line 10, has no children"},
      {"move A A", "PmCompoundPart \"A\", line 8, cannot stand under itself"},
      {"create 3 B A", "the id is in use: PmPartInstance \"B\", line 10"},
      {"create 3 NULL A", "\"NULL\" cannot be an id"},
      {"create 3 N A \"a b\"",
       "no object of type 3 and class \"a b\" could be made under PmCompoundPart \"A\", line 8"},
  };
  for (const auto& [script, reason] : cases) {
    const Outcome edit = run({"edit", file, "-", "--in-place"}, script);
    EXPECT_EQ(edit.exitCode, 1) << script;
    const std::string operation = script.substr(0, script.find(' '));
    EXPECT_EQ(edit.json(), (json{{"line", 1}, {"op", operation}, {"result", false}, {"reason", reason}}));
    EXPECT_EQ(edit.err, "zelstudy: standard input:1: refused: " + reason +
                            "\nzelstudy: the script was stopped; nothing is saved\n");
    EXPECT_EQ(folder.read("small.xml"), smallStudy) << script;
  }
}

constexpr std::string_view refusedInTheMiddle =
    "rename A First\n\nrename X Second\nrename B Third\nmove B X\n";

TEST_F(ToolEdit, AStoppedScriptSavesNothing) {
  const std::string script = folder.write("s", refusedInTheMiddle);
  folder.write("out.xml", "former");
  const Outcome edit = run({"edit", file, script, "--in-place", "--out", folder.path("out.xml")});
  EXPECT_EQ(edit.exitCode, 1);
  EXPECT_EQ(edit.lines().size(), 2u);
  EXPECT_EQ(edit.err, "zelstudy: " + script +
                          ":3: refused: no object has the id \"X\"\n"
                          "zelstudy: the script was stopped; nothing is saved\n");
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
  EXPECT_EQ(folder.read("out.xml"), "former");
  EXPECT_THAT(folder.files(), ElementsAre("out.xml", "s", "small.xml"));
}

TEST_F(ToolEdit, KeepGoingRunsAndSavesTheRest) {
  const std::string script = folder.write("s", refusedInTheMiddle);
  const Outcome edit = run(
      {"edit", file, script, "--keep-going", "-o", folder.path("new.xml"), "--out", folder.path("out.xml")});
  EXPECT_EQ(edit.exitCode, 1);
  std::vector<std::pair<int, bool>> results;
  for (const json& line : edit.lines()) results.emplace_back(line["line"], line["result"]);
  EXPECT_THAT(results,
              ElementsAre(std::pair(1, true), std::pair(3, false), std::pair(4, true), std::pair(5, false)));
  EXPECT_EQ(edit.err, "zelstudy: " + script + ":3: refused: no object has the id \"X\" (and 1 more)\n");
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
  EXPECT_EQ(folder.read("new.xml"),
            replaced(smallStudy, {{"\"A\"><name>Body<", "\"A\"><name>First<"}, {">Türgriff<", ">Third<"}}));
  EXPECT_THAT(folder.read("out.xml"), HasSubstr("<name>Third</name>"));
}

TEST_F(ToolEdit, ASyntaxErrorRunsNothing) {
  const std::string script = folder.write("s", "rename A First\nfly A\nrename A\n");
  const Outcome edit =
      run({"edit", file, script, "--in-place", "--keep-going", "--out", folder.path("out.xml")});
  EXPECT_EQ(edit.exitCode, 2);
  EXPECT_EQ(edit.out, "");
  EXPECT_EQ(edit.err, "zelstudy: " + script + ":2: unknown operation \"fly\"\nzelstudy: " + script +
                          ":3: NAME is missing: rename ID NAME\nzelstudy: nothing was run\n");
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
  EXPECT_THAT(folder.files(), ElementsAre("s", "small.xml"));
}

// Whichever of the two files cannot be written, neither is changed, and nothing else is left behind.
TEST_F(ToolEdit, AFailedSaveChangesNeitherFile) {
  const std::string out = folder.write("out.xml", "former");
  std::filesystem::create_directory(folder.path("dir"));
  const std::string lost = folder.path("none/x.xml"), directory = folder.path("dir");
  for (const std::vector<std::string>& outputs : {std::vector<std::string>{"-o", lost, "--out", out},
                                                  {"-o", directory, "--out", out},
                                                  {"--in-place", "--out", lost},
                                                  {"--in-place", "--out", directory}}) {
    std::vector<std::string> arguments = {"edit", file, "-"};
    arguments.insert(arguments.end(), outputs.begin(), outputs.end());
    const Outcome edit = run(arguments, "rename A First");
    EXPECT_EQ(edit.exitCode, 2) << testing::PrintToString(outputs);
    EXPECT_THAT(edit.err, testing::AnyOf(HasSubstr(lost + ": "), HasSubstr(directory + ": "))) << edit.err;
    EXPECT_EQ(folder.read("small.xml"), smallStudy);
    EXPECT_EQ(folder.read("out.xml"), "former");
    EXPECT_THAT(folder.files(), ElementsAre("dir", "out.xml", "small.xml"));
  }
}

TEST_F(ToolEdit, SavedChangesKeepTheRightsAndTheLinkOfTheirFile) {
  namespace fs = std::filesystem;
  const std::string target = folder.write("target.xml", "former");
  fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("target.xml", folder.path("link.xml"));
  EXPECT_EQ(run({"edit", file, "-", "--out", folder.path("link.xml")}, "rename A First").exitCode, 0);
  EXPECT_TRUE(fs::is_symlink(folder.path("link.xml")));
  EXPECT_THAT(folder.read("target.xml"), HasSubstr("<name>First</name>"));
  EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
