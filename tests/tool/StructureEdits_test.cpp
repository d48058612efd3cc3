#include "StudyText.h"
#include "tool/ToolRun.h"

// The operations of scripts on the structure, from outside: what they tell, and what stands in the saved
// study.
namespace {

using namespace tool_test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using ToolStructureEdits = StudyTest;

// Runs a script with --keep-going, saves to new.xml and out.xml, and answers the lines without number and
// name of the operation.
std::vector<json> edited(const Folder& folder, std::string_view study, std::string_view script,
                         bool out = true) {
  std::vector<std::string> arguments = {
      "edit", folder.write("study.xml", study), "-", "--keep-going", "-o", folder.path("new.xml")};
  if (out) arguments.insert(arguments.end(), {"--out", folder.path("out.xml")});
  std::vector<json> lines = run(arguments, script).lines();
  for (json& line : lines) {
    line.erase("line");
    line.erase("op");
  }
  return lines;
}

// Codes that check tells of the saved study.
std::vector<std::string> codes(const Folder& folder) {
  std::vector<std::string> list;
  const json told = run({"check", folder.path("new.xml"), "--json"}).json();
  for (const json& finding : told["findings"]) list.push_back(finding["code"]);
  return list;
}

void expectLines(const std::vector<json>& lines, const std::vector<std::string>& expected) {
  ASSERT_EQ(lines.size(), expected.size());
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i], json::parse(expected[i])) << i;
}

TEST_F(ToolStructureEdits, RootsAreMadeTakenOutAndPutInOrder) {
  expectLines(
      edited(folder, smallStudy,
             "create 3 N -\ncreate 1 M - PmSpecialPart\nroot B\nroot B\nreorder B N X\n"
             "create 200 Q -\ncreate 1 A -\nreorder A A\nroot LA\n"),
      {R"({"result": true, "id": "N", "type": 3, "stringType": "PmCompoundPart", "parentId": null})",
       R"({"result": true, "id": "M", "type": 1, "stringType": "PmSpecialPart", "parentId": null})",
       R"({"result": true, "id": "B", "parentId": null})", R"({"result": true, "id": "B", "parentId": null})",
       R"({"result": true, "roots": ["B", "N", "S", "C", "A", "M"]})",
       R"({"result": false, "reason": "no root of type 200 could be made"})",
       R"({"result": false, "reason": "the id is in use: PmCompoundPart \"A\", line 8"})",
       R"({"result": false, "reason": "\"A\" is named twice"})",
       R"({"result": false, "reason": "PmLayout \"LA\", line 9, is an object without a node"})"});
  EXPECT_EQ(codes(folder), std::vector<std::string>{"layout-left"});
  const json info = run({"info", folder.path("new.xml"), "--json"}).json();
  EXPECT_THAT(info["roots"], testing::UnorderedElementsAre("B", "N", "A", "C", "S", "M"));
}

TEST_F(ToolStructureEdits, DeletedObjectsLeaveTheirDebris) {
  expectLines(
      edited(folder, smallStudy, "delete B\ndelete A\ndelete L\ndelete X\n"),
      {R"({"result": true, "id": "B", "gone": true})", R"({"result": true, "id": "A", "gone": true})",
       R"({"result": false, "reason": "Label \"L\", line 13, could not be deleted; its parent may list it no more"})",
       R"({"result": false, "reason": "no object has the id \"X\""})"});
  EXPECT_EQ(codes(folder), (std::vector<std::string>{"layout-orphan", "layout-child-lost"}));
  const std::string out = folder.read("out.xml");
  EXPECT_THAT(out.substr(out.find("DG_DELETE")), HasSubstr("ExternalId=\"LB\""));
}

// B stands in A, which counts, and in C.
const std::string sharedStudy = replaced(
    smallStudy, {{"<parents><item>A</item></parents>", "<parents><item>A</item><item>C</item></parents>"},
                 {"\"C\"><parents/><children/>", "\"C\"><parents/><children><item>B</item></children>"}});

TEST_F(ToolStructureEdits, SharedObjectsAreDeletedOrUnshared) {
  expectLines(edited(folder, sharedStudy, "delete B\n"), {R"({"result": true, "id": "B", "gone": false})"});
  EXPECT_THAT(folder.read("new.xml"), HasSubstr("<parents><item>C</item></parents><layout>LB"));
  EXPECT_EQ(codes(folder), std::vector<std::string>{"layout-left"});

  expectLines(edited(folder, sharedStudy, "remove-sharing\n"), {R"({"result": true})"});
  EXPECT_EQ(folder.read("new.xml"), smallStudy);
}

TEST_F(ToolStructureEdits, LabelsAndPrototypesAreGivenAndTaken) {
  const std::vector<json> lines =
      edited(folder, smallStudy,
             "prototype PartPrototype PmPartPrototype 2.5 Handle\nset-prototype B A\nset-prototype B A\n"
             "set-prototype A B\nlabel B N \"My name\" \"a <b>\"\nlabel B N\nunlabel B N\n"
             "unlabel B N\nlabel B M Kept text\nprototype PartPrototype \"a b\" 1\n");
  ASSERT_EQ(lines.size(), 10u);
  const std::string id = lines[0]["id"];
  EXPECT_EQ(id.size(), 36u);
  EXPECT_EQ(lines[0], (json{{"result", true}, {"id", id}, {"type", 7}}));
  expectLines(
      {lines.begin() + 1, lines.end()},
      {R"({"result": true, "id": "B", "prototypeId": "A"})",
       R"({"result": false, "reason": "PmPartInstance \"B\", line 10, has a prototype already, or no field for one"})",
       R"({"result": false, "reason": "PmCompoundPart \"A\", line 8, has no prototype that can be set"})",
       R"({"result": true, "id": "N", "objectId": "B"})",
       R"({"result": false, "reason": "the id is in use: Label \"N\""})",
       R"({"result": true, "id": "B", "labels": []})",
       R"({"result": false, "reason": "PmPartInstance \"B\", line 10, has no label \"N\""})",
       R"({"result": true, "id": "M", "objectId": "B"})",
       R"({"result": false, "reason": "no prototype of class \"a b\" could be made"})"});
  const std::string saved = folder.read("new.xml");
  EXPECT_THAT(saved, HasSubstr("<PmPartPrototype ExternalId=\"" + id +
                               "\"><NodeInfo><family>PartPrototype</family></NodeInfo><name>Handle</name>"
                               "<weight>2.500000</weight></PmPartPrototype>"));
  EXPECT_THAT(saved, HasSubstr("<labels><item>M</item></labels>"));
  EXPECT_THAT(saved, Not(HasSubstr("ExternalId=\"N\"")));
  EXPECT_EQ(run({"show", folder.path("new.xml"), "M", "--json"}).json()["name"], "Kept");
  EXPECT_EQ(codes(folder), std::vector<std::string>{});
}

TEST_F(ToolStructureEdits, TheStudyIsPublishedWithoutOperationShortcuts) {
  const std::string withOperation = replaced(
      smallStudy, {{"<linkExternalID>A<", "<linkExternalID>O<"},
                   {"  </Objects>", document_test::made("PmOperation", "O", "Operation") + "</Objects>"}});
  expectLines(edited(folder, withOperation, "filter-study\n"), {R"({"result": true})"});
  EXPECT_THAT(folder.read("out.xml"), HasSubstr("<children/><info/>"));
  EXPECT_EQ(folder.read("new.xml"), withOperation);
  expectLines(edited(folder, withOperation, "filter-study\n", false),
              {R"({"result": false, "reason": "there is nowhere to publish the study: give --out OUT"})"});
}

}  // namespace
