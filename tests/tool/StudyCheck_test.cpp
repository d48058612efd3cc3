#include "zelstudy/StudyCheck.h"

#include <algorithm>
#include <map>
#include <set>

#include "StudyText.h"
#include "api/ApiPmClassTypes.h"
#include "document/DocumentTest.h"
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
    {"class-misspelt", {{"<PmOperation ", "<PmOperatoin "}, {"</PmOperation>", "</PmOperatoin>"}}, {"O"}, ""},
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
    {"resource-in-part",
     {{"<PmPartInstance ", "<PmToolInstance "},
      {"</PmPartInstance>", "</PmToolInstance>"},
      {"</labels><NodeInfo><family>Product", "</labels><NodeInfo><family>Resource"}},
     {"B", "A"},
     "parents"},
    {"cycle",
     {{"<processResource>",
       "<children><item>O</item></children><parents><item>O</item></parents><processResource>"}},
     {"O"},
     "children"},
    {"reference-left", {{"<node>B</node><note", "<node>Q</node><note"}}, {"L", "Q"}, "node"},
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
    {"layout-also-listed",
     {{inB, "<parents><item>A</item><item>C</item></parents>"},
      {"<parents/><children/><layout>LC", "<parents/>" + childB + "<layout>LC"},
      {"<children/><parent>NULL</parent><node>C",
       "<children><item>LB</item></children><parent>NULL</parent><node>C"}},
     {"LC", "LB", "LA"},
     "children"},
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
  return zelstudy::checkStudy(document, {.strict = strict}).findings;
}

const std::set<std::string> debris = {"layout-also-listed", "layout-child-lost", "layout-cleared",
                                      "layout-left",        "layout-orphan",     "layout-parent-lost",
                                      "parent-lost",        "reference-left",    "shortcut-unlisted"};

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

// So many objects without id, a class that is not known and a reference that leads nowhere.
std::string flood(int objects) {
  std::string text;
  for (int i = 0; i < objects; ++i) text += "<Drilling/>";
  return dataOf(text + made("PmOperation", "O", "Operation", field("prototype", "Q")));
}

TEST(StudyCheck, KeepsTheFirstOfEachRuleAndCountsAll) {
  const IXMLDOMDocument document = parse(flood(1000));
  const zelstudy::CheckResult all = zelstudy::checkStudy(document, {.strict = true, .limit = 0});
  ASSERT_EQ(all.findings.size(), 2001u);
  EXPECT_EQ(all.errors, 2001u);
  for (const std::size_t limit : {1, 3, 7, 100, 2000, 2001}) {
    const zelstudy::CheckResult some = zelstudy::checkStudy(document, {.strict = true, .limit = limit});
    EXPECT_EQ(some.errors, all.errors);
    ASSERT_EQ(some.counts.size(), 3u);
    EXPECT_LE(some.findings.size(), limit);
    EXPECT_GE(some.findings.size() + 2, limit);
    // Each rule has its first ones, and all stand in the order that they have among all.
    std::map<std::string_view, std::size_t> seen;
    auto next = all.findings.begin();
    for (const Finding& finding : some.findings) {
      next = std::find_if(next, all.findings.end(), [&](const Finding& f) {
        return f.code == finding.code && f.line == finding.line && f.text == finding.text;
      });
      ASSERT_NE(next, all.findings.end()) << limit;
      ++next;
      ++seen[finding.code];
    }
    if (limit < 3) continue;
    EXPECT_EQ(seen["reference"], 1u) << limit;
    EXPECT_LE(seen["id-missing"] > seen["class-unknown"] ? seen["id-missing"] - seen["class-unknown"]
                                                         : seen["class-unknown"] - seen["id-missing"],
              1u)
        << limit;
  }
}

TEST(StudyCheck, LongIdsFillNoMemory) {
  std::string lost;
  for (int i = 0; i < 300; ++i) lost += item("Q" + std::to_string(i));
  const std::string longId(100'000, 'x');
  const zelstudy::CheckResult result = zelstudy::checkStudy(
      parse(dataOf(made("PmOperation", longId, "Operation", field("children", lost)))), {.limit = 100});
  EXPECT_EQ(result.errors, 300u);
  std::size_t bytes = 0;
  for (const Finding& finding : result.findings) {
    EXPECT_LT(finding.text.size(), 1000u);
    for (const std::string& id : finding.ids) bytes += id.size();
  }
  EXPECT_GE(bytes, longId.size());
  EXPECT_LE(bytes, 100u * 4096u);
}

TEST(StudyCheck, OneSlipOfALetterIsAMisspeltClass) {
  const auto& types = ApiPmClassTypeDataMgr::the();
  for (const char* slip :
       {"PmPartInstanse", "PmPartInstnce", "PmPartInnstance", "PmPartInstacne", "pmpartinstance"}) {
    const ApiPmClassType* meant = types.findMisspelt(slip);
    ASSERT_TRUE(meant) << slip;
    EXPECT_EQ(meant->name, "PmPartInstance");
  }
  for (const char* other :
       {"PmPartInstance", "PmPart", "PmPart2", "Pm2DRep", "PmPartInstanceOf", "Robot", ""})
    EXPECT_EQ(types.findMisspelt(other), nullptr) << other;
  // A family of its own makes it a class of its own.
  const std::string own = dataOf(made("PmOperatoin", "O", "Process", ""));
  EXPECT_TRUE(check(own, false).empty());
  EXPECT_EQ(check(own, true)[0].code, "class-unknown");
}

TEST(StudyCheck, TheProgramTakesSeveralFilesAndGroupsWhatIsAlike) {
  const Folder folder;
  const std::string one = folder.write("one.xml", flood(8)), two = folder.write("two.xml", healthy),
                    none = folder.path("none.xml");
  const Outcome text = run({"check", one, two});
  EXPECT_EQ(text.exitCode, 1);
  EXPECT_EQ(std::ranges::count(text.out, '\n'), 5 + 1 + 1 + 1 + 1) << text.out;
  EXPECT_NE(text.out.find(one + ": 3 more like these: Every object has an ExternalId. [id-missing]\n" + two +
                          ": nothing is out of order\n9 errors, 0 debris; --all lists all; "),
            std::string::npos)
      << text.out;
  EXPECT_EQ(std::ranges::count(run({"check", one, "--all"}).out, '\n'), 10);

  const Outcome json = run({"check", one, none, two, "--limit", "4", "--json"});
  EXPECT_EQ(json.exitCode, 2);
  EXPECT_NE(json.err.find(none), std::string::npos) << json.err;
  const nlohmann::json told = json.json(), files = told["files"];
  EXPECT_EQ(told["findings"].size(), 4u);
  EXPECT_EQ(files[0]["totals"], nlohmann::json({{"id-missing", 8}, {"reference", 1}}));
  EXPECT_EQ(files[1]["read"], false);
  EXPECT_EQ(files[2]["errors"], 0);
}

TEST(StudyCheck, TheProgramTellsFindingsAndRules) {
  const Folder folder;
  const Outcome clean = run({"check", "--strict", ZELXML_SOURCE_DIR "/examples/cell/cell.xml"});
  EXPECT_EQ(clean.exitCode, 0) << clean.out << clean.err;

  const std::string file = folder.write("bad.xml", replaced(healthy, "<variant>NULL", "<variant>Q"));
  EXPECT_EQ(run({"check", file}).exitCode, 0);
  const Outcome json = run({"check", file, "--strict", "--json"});
  EXPECT_EQ(json.exitCode, 1);
  EXPECT_EQ(json.json(), nlohmann::json::parse(replaced(
                                                   R"({"errors": 1, "debris": 0, "findings": [{
      "file": "FILE", "code": "reference-other", "severity": "error", "ids": ["O", "Q"], "line": 14,
      "field": "variant", "text": "PmOperation \"O\" names \"Q\" in variant, and no object has that id",
      "remedy": "See whether the object was meant to come along."}], "files": [{"file": )",
                                                   "FILE", file) +
                                               '"' + file +
                                               R"(", "read": true, "errors": 1, "debris": 0, "listed": 1,
      "totals": {"reference-other": 1}}]})"));
  EXPECT_EQ(run({"check", file, "--strict"}).out,
            file +
                ":14: error: PmOperation \"O\" names \"Q\" in variant, and no object has that id"
                " [reference-other]\n1 error, 0 debris; zelstudy check --explain CODE tells more\n");

  EXPECT_EQ(run({"check", "--explain", "layout-left"}).out.substr(0, 22), "layout-left (debris)\n\n");
}

}  // namespace
