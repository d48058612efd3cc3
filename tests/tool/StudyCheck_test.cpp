#include "zelstudy/StudyCheck.h"

#include <gtest/gtest.h>

#include <set>

#include "StudyGenerator.h"
#include "tool/ToolRun.h"

namespace {

using namespace tool_test;
using zelstudy::Finding;
using Strings = std::vector<std::string>;

std::string placed(std::string_view element, std::string_view id, int x, std::string_view rest,
                   int absolute) {
  const std::string name(element);
  return "<" + name + " ExternalId=\"" + std::string(id) + "\"><location><item>" + std::to_string(x) +
         "</item><item/><item/></location><rotation><item/><item/><item/></rotation>" + std::string(rest) +
         "<NodeInfo><family>" + name + "</family>" +
         (name == "PmLayout" ? "<absoluteLocation><x>" + std::to_string(absolute) +
                                   "</x><y/><z/><rx/><ry/><rz/></absoluteLocation>"
                             : "") +
         "</NodeInfo></" + name + ">\n";
}

std::string family(std::string_view name) {
  return "<NodeInfo><family>" + std::string(name) + "</family></NodeInfo>";
}

const std::string studyLayout = placed("PmStudyLayout", "SL", 10, "<children/><parent>NULL</parent>", 0);

// In order, one line each, from line 2: the study S with a shortcut K to A; A, with the child B; the label L
// of B, the prototype P of B with representation D and file F; the operation O; the root C.
const std::string healthy =
    "<Data><Objects>\n"
    "<MarvekStudy ExternalId=\"S\"><children><item>K</item></children><info><item>I</item></info>" +
    family("Study") +
    "</MarvekStudy>\n"
    "<PmShortcut ExternalId=\"K\"><parent>S</parent><linkExternalID>A</linkExternalID>" +
    family("Shortcut") +
    "</PmShortcut>\n"
    "<MarvekStudyInfo ExternalId=\"I\"><layout>SL</layout></MarvekStudyInfo>\n" +
    studyLayout +
    "<PmCompoundPart ExternalId=\"A\"><parents/><children><item>B</item></children><layout>LA</layout>" +
    family("Product") + "</PmCompoundPart>\n" +
    placed("PmLayout", "LA", 10, "<children><item>LB</item></children><parent>NULL</parent><node>A</node>",
           10) +
    "<PmPartInstance "
    "ExternalId=\"B\"><parents><item>A</item></parents><layout>LB</layout><prototype>P</prototype>"
    "<labels><item>L</item></labels>" +
    family("Product") + "</PmPartInstance>\n" +
    placed("PmLayout", "LB", 1, "<children/><parent>LA</parent><node>B</node>", 11) +
    "<Label ExternalId=\"L\"><node>B</node><noteLocation>1._0._0._0._0._0.</noteLocation>" + family("Label") +
    "</Label>\n"
    "<PmPartPrototype ExternalId=\"P\"><threeDRep>D</threeDRep><weight>2.5</weight>" +
    family("PartPrototype") +
    "</PmPartPrototype>\n"
    "<Pm3DRep ExternalId=\"D\"><file>F</file>" +
    family("ExternalDocument") +
    "</Pm3DRep>\n"
    "<PmReferenceFile ExternalId=\"F\"><Signal ExternalId=\"G\"/>" +
    family("PmReferenceFile") +
    "</PmReferenceFile>\n"
    "<PmOperation ExternalId=\"O\"><processResource>B</processResource><variant>NULL</variant>" +
    family("Operation") +
    "</PmOperation>\n"
    "<PmCompoundPart ExternalId=\"C\"><parents/><children/><layout>LC</layout>" +
    family("Product") + "</PmCompoundPart>\n" +
    placed("PmLayout", "LC", 0, "<children/><parent>NULL</parent><node>C</node>", 0) + "</Objects></Data>\n";

struct Case {
  std::string code, severity;
  std::vector<std::pair<std::string, std::string>> changes;  // "" stands before the end of the objects
  Strings ids;
  unsigned line;
  std::string field;
};

const std::string inB = "<parents><item>A</item></parents>", childB = "<children><item>B</item></children>",
                  listsLB = "<item>LB</item>", parentLA = "<parent>LA</parent>";

const std::vector<Case> cases = {
    {"id-missing", "error", {{" ExternalId=\"O\"", ""}}, {}, 14, "ExternalId"},
    {"id-missing", "error", {{"\"O\"", "\"NULL\""}}, {}, 14, "ExternalId"},
    {"id-duplicate", "error", {{"\"O\"", "\"F\""}}, {"F"}, 14, "ExternalId"},
    {"family-missing", "error", {{family("Operation"), ""}}, {"O"}, 14, "family"},
    {"family-class", "error", {{"<family>Operation", "<family>PmFlow"}}, {"O"}, 14, "family"},
    {"number", "error", {{"2.5", "2,5"}}, {"P"}, 11, "weight"},
    {"number", "error", {{"<item>1<", "<item>1m<"}}, {"LB"}, 9, "location"},
    {"number", "error", {{"<x>11<", "<x>nan<"}}, {"LB"}, 9, "NodeInfo/absoluteLocation"},
    {"number",
     "error",
     {{"<family>Operation</family>", "<family>Operation</family><Id>1.5</Id>"}},
     {"O"},
     14,
     "NodeInfo/Id"},
    {"number", "error", {{"1._0._0._0._0._0.", "1._0._0._0._0."}}, {"L"}, 10, "noteLocation"},
    {"location", "error", {{"<x>11</x>", ""}}, {"LB"}, 9, "NodeInfo/absoluteLocation"},
    {"location", "error", {{"<item>1</item>", ""}}, {"LB"}, 9, "location"},
    {"reference", "error", {{"<prototype>P", "<prototype>Q"}}, {"B", "Q"}, 8, "prototype"},
    {"reference", "error", {{"<layout>LB", "<layout>Q"}}, {"B", "Q"}, 8, "layout"},
    {"reference",
     "error",
     {{"<node>B</node><NodeInfo>", "<node>Q</node><NodeInfo>"}},
     {"LB", "Q"},
     9,
     "node"},
    {"reference", "error", {{"<item>B</item>", "<item>B</item><item>Q</item>"}}, {"A", "Q"}, 6, "children"},
    {"reference", "error", {{"<item>L</item>", "<item>L</item><item>Q</item>"}}, {"B", "Q"}, 8, "labels"},
    {"reference",
     "error",
     {{"<item>I</item>", "<item>Q</item>"},
      {"<MarvekStudyInfo ExternalId=\"I\"><layout>SL</layout></MarvekStudyInfo>\n" + studyLayout, ""}},
     {"S", "Q"},
     2,
     "info"},
    {"reference", "error", {{"<threeDRep>D", "<threeDRep>Q"}}, {"P", "Q"}, 11, "threeDRep"},
    {"reference", "error", {{"<file>F", "<file>Q"}}, {"D", "Q"}, 12, "file"},
    {"reference",
     "error",
     {{"<prototype>P</prototype>",
       "<prototype/><masterObj><BrimID><ProcessModelID>Q</ProcessModelID></BrimID></masterObj>"}},
     {"B", "Q"},
     8,
     "masterObj"},
    {"reference-left",
     "debris",
     {{"<processResource>B", "<processResource>Q"}},
     {"O", "Q"},
     14,
     "processResource"},
    {"reference-left", "debris", {{"<node>B</node><note", "<node>Q</node><note"}}, {"L", "Q"}, 10, "node"},
    {"reference-kind",
     "error",
     {{"<item>L</item>", "<item>L</item><item>P</item>"}},
     {"B", "P"},
     8,
     "labels"},
    {"reference-kind",
     "error",
     {{"<item>K</item>", "<item>K</item><item>C</item>"}, {"<item>I</item>", "<item>I</item><item/>"}},
     {"S", "C"},
     2,
     "children"},
    {"reference-kind", "error", {{parentLA, "<parent>A</parent>"}, {listsLB, ""}}, {"LB", "A"}, 9, "parent"},
    {"repeated",
     "error",
     {{"<item>L</item>", "<item>L</item><item>L</item><item>L</item>"}},
     {"B", "L"},
     8,
     "labels"},
    {"child-without-parent", "error", {{inB, "<parents/>"}}, {"A", "B"}, 6, "children"},
    {"parent-without-child", "error", {{childB, "<children/>"}}, {"B", "A"}, 8, "parents"},
    {"parent-lost",
     "debris",
     {{inB, "<parents><item>A</item><item>Q</item></parents>"}},
     {"B", "Q"},
     8,
     "parents"},
    {"cycle",
     "error",
     {{"<processResource>",
       "<children><item>O</item></children><parents><item>O</item></parents><processResource>"}},
     {"O"},
     14,
     "children"},
    {"label-node", "error", {{"<node>B</node><note", "<node>A</node><note"}}, {"L", "A"}, 10, "node"},
    {"layout-node",
     "error",
     {{"<node>B</node><NodeInfo>", "<node>C</node><NodeInfo>"}},
     {"LB", "B", "C"},
     9,
     "node"},
    {"layout-node",
     "error",
     {{"", placed("PmLayout", "X", 0, "<parent/><node>C</node>", 0)}},
     {"X", "C"},
     17,
     "node"},
    {"layout-shared", "error", {{"<layout>LC", "<layout>LB"}}, {"C", "LB", "B"}, 15, "layout"},
    {"layout-unused", "error", {{"", placed("PmStudyLayout", "X", 0, "", 0)}}, {"X"}, 17, ""},
    {"layout-orphan",
     "debris",
     {{"", placed("PmLayout", "X", 0, "<children><item>LB</item></children><node>Q</node>", 5)}},
     {"X", "Q"},
     17,
     "node"},
    {"layout-parent", "error", {{listsLB, ""}}, {"LB", "LA"}, 9, "parent"},
    {"layout-children", "error", {{parentLA, "<parent>NULL</parent>"}}, {"LA", "LB"}, 7, "children"},
    {"layout-children", "error", {{parentLA, "<parent>Q</parent>"}}, {"LA", "LB"}, 7, "children"},
    {"layout-detached",
     "error",
     {{parentLA, "<parent>NULL</parent>"}, {listsLB, ""}},
     {"LB", "B"},
     9,
     "parent"},
    {"layout-cleared", "debris", {{parentLA, "<parent/>"}, {listsLB, ""}}, {"LB", "B"}, 9, "parent"},
    {"layout-parent-lost",
     "debris",
     {{parentLA, "<parent>Q</parent>"}, {listsLB, ""}},
     {"LB", "Q"},
     9,
     "parent"},
    {"layout-child-lost", "debris", {{listsLB, listsLB + "<item>Q</item>"}}, {"LA", "Q"}, 7, "children"},
    {"layout-left",
     "debris",
     {{childB, "<children/>"}, {inB, "<parents/>"}},
     {"LB", "LA", "B", "A"},
     9,
     "parent"},
    {"layout-left", "debris", {{listsLB, listsLB + "<item>LC</item>"}}, {"LC", "LA"}, 16, "parent"},
    {"layout-cycle",
     "error",
     {{"<children/><parent>NULL</parent><node>C",
       "<children><item>LC</item></children><parent>LC</parent><node>C"}},
     {"LC"},
     16,
     "children"},
    {"location-absolute",
     "error",
     {{"<x>11<", "<x>11.01<"}},
     {"LB", "LA", "B"},
     9,
     "NodeInfo/absoluteLocation"},
    {"location-absolute",
     "error",
     {{"<x>11</x><y/><z/><rx/>", "<x>11</x><y/><z/><rx>0.001</rx>"}},
     {"LB", "LA", "B"},
     9,
     "NodeInfo/absoluteLocation"},
    {"location-root", "error", {{"<x>0<", "<x>1<"}}, {"LC", "C"}, 16, "NodeInfo/absoluteLocation"},
    {"study-lists", "error", {{"<item>K</item>", "<item>K</item><item/>"}}, {"S"}, 2, "info"},
    {"info-unlisted",
     "error",
     {{"", "<MarvekStudyInfo ExternalId=\"J\"><layout>X</layout></MarvekStudyInfo>" +
               placed("PmStudyLayout", "X", 0, "", 0)}},
     {"J"},
     17,
     ""},
    {"info-layout", "error", {{"<layout>SL</layout>", ""}, {studyLayout, "\n"}}, {"I"}, 4, "layout"},
    {"shortcut-parent", "error", {{"<parent>S<", "<parent>NULL<"}}, {"K", "S"}, 3, "parent"},
    {"shortcut-target", "error", {{"ID>A<", "ID>Q<"}}, {"K", "Q"}, 3, "linkExternalID"},
    {"shortcut-target", "error", {{"ID>A<", "ID><"}}, {"K"}, 3, "linkExternalID"},
    {"shortcut-twice",
     "error",
     {{"<item>K</item>", "<item>K</item><item>M</item>"},
      {"<item>I</item>", "<item>I</item><item/>"},
      {"", "<PmShortcut ExternalId=\"M\"><parent>S</parent><linkExternalID>A</linkExternalID>" +
               family("Shortcut") + "</PmShortcut>"}},
     {"M", "A", "K"},
     17,
     "linkExternalID"},
    {"shortcut-unlisted",
     "debris",
     {{"", "<PmShortcut ExternalId=\"M\"><parent>S</parent><linkExternalID>Q</linkExternalID>" +
               family("Shortcut") + "</PmShortcut>"}},
     {"M"},
     17,
     "parent"},
    {"class-unknown",
     "error",
     {{"<PmOperation ", "<Drilling "}, {"</PmOperation>", "</Drilling>"}},
     {"O"},
     14,
     ""},
    {"layout-missing",
     "error",
     {{"", "<PmPartInstance ExternalId=\"X\">" + family("Product") + "</PmPartInstance>"}},
     {"X"},
     17,
     "layout"},
    {"layout-node-missing", "error", {{"<node>C</node>", ""}}, {"LC", "C"}, 16, "node"},
    {"reference-other", "error", {{"<variant>NULL", "<variant>Q"}}, {"O", "Q"}, 14, "variant"},
    {"reference-other", "error", {{"<prototype>P", "<prototype>G"}}, {"B", "G"}, 8, "prototype"},
    {"study-several",
     "error",
     {{"", "<MarvekStudy ExternalId=\"T\"><children/><info/>" + family("Study") + "</MarvekStudy>"}},
     {"T", "S"},
     17,
     ""},
};

std::vector<Finding> check(std::string_view text, bool strict) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  EXPECT_TRUE(document.loadXML(text, &error)) << error.message() << '\n' << text;
  return zelstudy::checkStudy(document, strict);
}

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
    EXPECT_EQ(zelstudy::severityName(finding.severity), c.severity) << told;
    EXPECT_EQ(finding.ids, c.ids) << told;
    EXPECT_EQ(finding.line, c.line) << told;
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
  std::string text = "<Data><Objects>";
  for (int i = 0; i < length; ++i)
    text += "<PmOperation ExternalId=\"" + std::to_string(i) + "\"><children><item>" +
            std::to_string((i + 1) % length) + "</item></children><parents><item>" +
            std::to_string((i + length - 1) % length) + "</item></parents>" + family("Operation") +
            "</PmOperation>";
  const std::vector<Finding> findings = check(text + "</Objects></Data>", false);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].code, "cycle");
  EXPECT_EQ(findings[0].ids.front(), "0");
}

TEST(StudyCheck, GeneratedStudiesAreClean) {
  for (const char* studyClass : {"MarvekStudy", "LineSimulationStudy"}) {
    zelgen::StudyOptions options;
    options.objects = 5000;
    options.depth = 30;
    options.shared = 40;
    options.studyClass = studyClass;
    const std::vector<Finding> findings = check(zelgen::generateStudy(options), false);
    EXPECT_TRUE(findings.empty()) << findings[0].text;
  }
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
  EXPECT_EQ(run({"check", "--explain", "nonsense"}).exitCode, 2);
  EXPECT_EQ(run({"check"}).exitCode, 2);
  EXPECT_EQ(run({"check", folder.path("none.xml")}).exitCode, 2);
  EXPECT_EQ(run({"check", folder.write("no.xml", "<Data/>")}).exitCode, 2);
}

}  // namespace
