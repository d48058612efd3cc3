#include "zelstudy/StudyCheck.h"

#include <algorithm>
#include <set>

#include "StudyText.h"
#include "tool/ToolRun.h"

namespace {

using namespace document_test;
using namespace tool_test;
using zelstudy::Finding;
using Strings = std::vector<std::string>;

// A layout at (x, 0, 0).
std::string placed(const std::string& type, const std::string& id, int x, const std::string& rest = "") {
  const std::string absolute = field("absoluteLocation", "<x>0</x><y/><z/><rx/><ry/><rz/>");
  return bare(type, id,
              field("location", item(std::to_string(x)) + "<item/><item/>") +
                  field("rotation", "<item/><item/><item/>") + rest +
                  field("NodeInfo", field("family", type) + absolute));
}

const std::string studyLayout = placed("PmStudyLayout", "SL", 10, "<children/><parent>NULL</parent>");

// In order, one line each, from line 2: the study S with a shortcut K to A; A, with the child B; the label L
// of B, the prototype P of B with representation D and file F; the operation O; the root C.
const std::string healthy = R"(<Data><Objects>
<MarvekStudy ExternalId="S"><children><item>K</item></children><info><item>I</item></info><NodeInfo><family>Study</family></NodeInfo></MarvekStudy>
<PmShortcut ExternalId="K"><parent>S</parent><linkExternalID>A</linkExternalID><NodeInfo><family>Shortcut</family></NodeInfo></PmShortcut>
<MarvekStudyInfo ExternalId="I"><layout>SL</layout></MarvekStudyInfo>
)" + studyLayout + R"(
<PmCompoundPart ExternalId="A"><parents/><children><item>B</item></children><layout>LA</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>
<PmLayout ExternalId="LA"><location><item>10</item><item/><item/></location><rotation><item/><item/><item/></rotation><children><item>LB</item></children><parent>NULL</parent><node>A</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>10</x><y/><z/><rx/><ry/><rz/></absoluteLocation></NodeInfo></PmLayout>
<PmPartInstance ExternalId="B"><parents><item>A</item></parents><layout>LB</layout><prototype>P</prototype><labels><item>L</item></labels><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>
<PmLayout ExternalId="LB"><location><item>1</item><item/><item/></location><rotation><item/><item/><item/></rotation><children/><parent>LA</parent><node>B</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>11</x><y/><z/><rx/><ry/><rz/></absoluteLocation></NodeInfo></PmLayout>
<Label ExternalId="L"><node>B</node><noteLocation>1._0._0._0._0._0.</noteLocation><NodeInfo><family>Label</family></NodeInfo></Label>
<PmPartPrototype ExternalId="P"><threeDRep>D</threeDRep><weight>2.5</weight><NodeInfo><family>PartPrototype</family></NodeInfo></PmPartPrototype>
<Pm3DRep ExternalId="D"><file>F</file><NodeInfo><family>ExternalDocument</family></NodeInfo></Pm3DRep>
<PmReferenceFile ExternalId="F"><Signal ExternalId="G"/><NodeInfo><family>PmReferenceFile</family></NodeInfo></PmReferenceFile>
<PmOperation ExternalId="O"><processResource>B</processResource><variant>NULL</variant><NodeInfo><family>Operation</family></NodeInfo></PmOperation>
<PmCompoundPart ExternalId="C"><parents/><children/><layout>LC</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>
<PmLayout ExternalId="LC"><location><item>0</item><item/><item/></location><rotation><item/><item/><item/></rotation><children/><parent>NULL</parent><node>C</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>0</x><y/><z/><rx/><ry/><rz/></absoluteLocation></NodeInfo></PmLayout>
</Objects></Data>
)";

struct Case {
  std::string code;
  std::vector<std::pair<std::string, std::string>> changes;  // "" stands before the end of the objects
  Strings ids;  // the first one is of the object whose line is told
  std::string field;
};

const std::string inB = "<parents><item>A</item></parents>", childB = "<children><item>B</item></children>",
                  listsLB = "<item>LB</item>", parentLA = "<parent>LA</parent>";

const std::vector<Case> cases = {
    {"id-missing", {{" ExternalId=\"O\"", ""}}, {}, "ExternalId"},
    {"id-duplicate", {{"\"O\"", "\"F\""}}, {"F"}, "ExternalId"},
    {"family-missing", {{familyOf("Operation"), ""}}, {"O"}, "family"},
    {"family-class", {{"<family>Operation", "<family>PmFlow"}}, {"O"}, "family"},
    {"number", {{"2.5", "2,5"}}, {"P"}, "weight"},
    {"number", {{"<x>11<", "<x>nan<"}}, {"LB"}, "NodeInfo/absoluteLocation"},
    {"number", {{"1._0._0._0._0._0.", "1._0._0._0._0."}}, {"L"}, "noteLocation"},
    {"location", {{"<x>11</x>", ""}}, {"LB"}, "NodeInfo/absoluteLocation"},
    {"reference", {{"<prototype>P", "<prototype>Q"}}, {"B", "Q"}, "prototype"},
    {"reference",
     {{"<prototype>P</prototype>",
       "<prototype/><masterObj><BrimID><ProcessModelID>Q</ProcessModelID></BrimID></masterObj>"}},
     {"B", "Q"},
     "masterObj"},
    {"reference-left", {{"<processResource>B", "<processResource>Q"}}, {"O", "Q"}, "processResource"},
    {"reference-kind", {{"<item>L</item>", "<item>L</item><item>P</item>"}}, {"B", "P"}, "labels"},
    {"repeated", {{"<item>L</item>", "<item>L</item><item>L</item><item>L</item>"}}, {"B", "L"}, "labels"},
    {"child-without-parent", {{inB, "<parents/>"}}, {"A", "B"}, "children"},
    {"parent-without-child", {{childB, "<children/>"}}, {"B", "A"}, "parents"},
    {"parent-lost", {{inB, "<parents><item>A</item><item>Q</item></parents>"}}, {"B", "Q"}, "parents"},
    {"cycle",
     {{"<processResource>",
       "<children><item>O</item></children><parents><item>O</item></parents><processResource>"}},
     {"O"},
     "children"},
    {"label-node", {{"<node>B</node><note", "<node>A</node><note"}}, {"L", "A"}, "node"},
    {"layout-node", {{"<node>B</node><NodeInfo>", "<node>C</node><NodeInfo>"}}, {"LB", "B", "C"}, "node"},
    {"layout-node", {{"", placed("PmLayout", "X", 0, "<parent/><node>C</node>")}}, {"X", "C"}, "node"},
    {"layout-shared", {{"<layout>LC", "<layout>LB"}}, {"C", "LB", "B"}, "layout"},
    {"layout-unused", {{"", placed("PmStudyLayout", "X", 0)}}, {"X"}, ""},
    {"layout-orphan",
     {{"", placed("PmLayout", "X", 0, "<children><item>LB</item></children><node>Q</node>")}},
     {"X", "Q"},
     "node"},
    {"layout-parent", {{listsLB, ""}}, {"LB", "LA"}, "parent"},
    {"layout-children", {{parentLA, "<parent>NULL</parent>"}}, {"LA", "LB"}, "children"},
    {"layout-detached", {{parentLA, "<parent>NULL</parent>"}, {listsLB, ""}}, {"LB", "B"}, "parent"},
    {"layout-cleared", {{parentLA, "<parent/>"}, {listsLB, ""}}, {"LB", "B"}, "parent"},
    {"layout-parent-lost", {{parentLA, "<parent>Q</parent>"}, {listsLB, ""}}, {"LB", "Q"}, "parent"},
    {"layout-child-lost", {{listsLB, listsLB + "<item>Q</item>"}}, {"LA", "Q"}, "children"},
    {"layout-left", {{childB, "<children/>"}, {inB, "<parents/>"}}, {"LB", "LA", "B", "A"}, "parent"},
    {"layout-cycle",
     {{"<children/><parent>NULL</parent><node>C",
       "<children><item>LC</item></children><parent>LC</parent><node>C"}},
     {"LC"},
     "children"},
    {"location-absolute", {{"<x>11<", "<x>11.01<"}}, {"LB", "LA", "B"}, "NodeInfo/absoluteLocation"},
    {"location-root", {{"<item>0<", "<item>1<"}}, {"LC", "C"}, "NodeInfo/absoluteLocation"},
    {"study-lists", {{"<item>K</item>", "<item>K</item><item/>"}}, {"S"}, "info"},
    {"info-unlisted", {{"", infoWith("J", "X") + placed("PmStudyLayout", "X", 0)}}, {"J"}, ""},
    {"info-layout", {{"<layout>SL</layout>", ""}, {studyLayout, "\n"}}, {"I"}, "layout"},
    {"shortcut-parent", {{"<parent>S<", "<parent>NULL<"}}, {"K", "S"}, "parent"},
    {"shortcut-target", {{"ID>A<", "ID>Q<"}}, {"K", "Q"}, "linkExternalID"},
    {"shortcut-twice",
     {{"<item>K</item>", "<item>K</item><item>M</item>"},
      {"<item>I</item>", "<item>I</item><item/>"},
      {"", shortcutTo("M", "A", "S")}},
     {"M", "A", "K"},
     "linkExternalID"},
    {"shortcut-unlisted", {{"", shortcutTo("M", "Q", "S")}}, {"M"}, "parent"},
    {"class-unknown", {{"<PmOperation ", "<Drilling "}, {"</PmOperation>", "</Drilling>"}}, {"O"}, ""},
    {"layout-missing", {{"", made("PmPartInstance", "X", "Product")}}, {"X"}, "layout"},
    {"layout-node-missing", {{"<node>C</node>", ""}}, {"LC", "C"}, "node"},
    {"reference-other", {{"<variant>NULL", "<variant>Q"}}, {"O", "Q"}, "variant"},
    {"study-several", {{"", studyOf("T", "", "")}}, {"T", "S"}, ""},
};

std::vector<Finding> check(std::string_view text, bool strict) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  EXPECT_TRUE(document.loadXML(text, &error)) << error.message() << '\n' << text;
  return zelstudy::checkStudy(document, strict);
}

const std::set<std::string> debris = {"layout-child-lost", "layout-cleared",     "layout-left",
                                      "layout-orphan",     "layout-parent-lost", "parent-lost",
                                      "reference-left",    "shortcut-unlisted"};

TEST(StudyCheck, EveryRuleIsBrokenBySomethingThatBreaksNothingElse) {
  ASSERT_TRUE(check(healthy, true).empty()) << check(healthy, true)[0].text;
  std::set<std::string_view> broken;
  for (const Case& c : cases) {
    std::string text = healthy;
    for (const auto& [from, to] : c.changes)
      text = from.empty() ? replaced(text, "</Objects>", to + "</Objects>") : replaced(text, from, to);
    const std::vector<Finding> findings = check(text, true);
    std::string told;
    for (const Finding& finding : findings)
      told.append(finding.code).append(": ").append(finding.text + "\n");
    ASSERT_EQ(findings.size(), 1u) << c.code << ":\n" << told << text;
    const Finding& finding = findings[0];
    EXPECT_EQ(finding.code, c.code) << told;
    EXPECT_EQ(zelstudy::severityName(finding.severity), debris.count(c.code) ? "debris" : "error") << told;
    EXPECT_EQ(finding.ids, c.ids) << told;
    const std::size_t object =
        text.rfind(c.ids.empty() ? "<PmOperation" : " ExternalId=\"" + c.ids[0] + "\"");
    EXPECT_EQ(static_cast<std::ptrdiff_t>(finding.line), 1 + std::ranges::count(text.substr(0, object), '\n'))
        << told;
    EXPECT_EQ(finding.field, c.field) << told;
    broken.insert(finding.code);
    const zelstudy::CheckRule* rule = zelstudy::findCheckRule(c.code);
    ASSERT_TRUE(rule);
    EXPECT_EQ(check(text, false).size(), rule->strict ? 0u : 1u) << told;
  }
  for (const zelstudy::CheckRule& rule : zelstudy::checkRules())
    EXPECT_TRUE(broken.count(rule.code)) << rule.code;
}

TEST(StudyCheck, LongCyclesAndDeepTreesAreWalked) {
  constexpr int length = 100000;
  std::string text;
  for (int i = 0; i < length; ++i)
    text += made("PmOperation", std::to_string(i), "Operation",
                 listOf("children", std::to_string((i + 1) % length)) +
                     listOf("parents", std::to_string((i + length - 1) % length)));
  const std::vector<Finding> findings = check(dataOf(text), false);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].code, "cycle");
  EXPECT_EQ(findings[0].ids.front(), "0");
}

TEST(StudyCheck, TheProgramTellsFindingsAndRules) {
  const Folder folder;
  const Outcome clean = run({"check", ZELXML_SOURCE_DIR "/examples/cell/cell.xml"});
  EXPECT_EQ(clean.exitCode, 0) << clean.out << clean.err;

  const std::string file = folder.write("bad.xml", replaced(healthy, "<variant>NULL", "<variant>Q"));
  EXPECT_EQ(run({"check", file}).exitCode, 0);
  const Outcome json = run({"check", file, "--strict", "--json"});
  EXPECT_EQ(json.exitCode, 1);
  EXPECT_EQ(json.json(), nlohmann::json::parse(R"({"errors": 1, "debris": 0, "findings": [{
      "code": "reference-other", "severity": "error", "ids": ["O", "Q"], "line": 14, "field": "variant",
      "text": "PmOperation \"O\" names \"Q\" in variant, and no object has that id",
      "remedy": "See whether the object was meant to come along."}]})"));
  EXPECT_EQ(run({"check", file, "--strict"}).out,
            file +
                ":14: error: PmOperation \"O\" names \"Q\" in variant, and no object has that id"
                " [reference-other]\n1 error, 0 debris; zelstudy check --explain CODE tells more\n");

  EXPECT_EQ(run({"check", "--explain", "layout-left"}).out.substr(0, 22), "layout-left (debris)\n\n");
}

}  // namespace
