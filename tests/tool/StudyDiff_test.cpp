#include "zelstudy/StudyDiff.h"

#include "document/DocumentTest.h"
#include "tool/ToolRun.h"

namespace {

using namespace tool_test;
using namespace document_test;
using Strings = std::vector<std::string>;

// One line per difference.
Strings linesOf(const zelstudy::StudyDiff& diff) {
  Strings lines;
  for (const auto& object : diff.removed) lines.push_back("- " + object.className + " " + object.id);
  for (const auto& object : diff.added) lines.push_back("+ " + object.className + " " + object.id);
  for (const auto& [object, changes] : diff.changed)
    for (const auto& change : changes) {
      std::string line = object.id + " " + std::string(changeKindName(change.kind)) + " " + change.path;
      if (change.kind == zelstudy::ChangeKind::placement)
        line += " " + std::to_string(change.length) + " " + std::to_string(change.angle);
      else
        line += " " + change.before.dump() + " " + change.after.dump();
      lines.push_back(line);
    }
  return lines;
}

Strings diffOf(std::string_view before, std::string_view after) {
  return linesOf(zelstudy::diffStudies(parse(before), parse(after)));
}

const std::string parentsOfB = "Türgriff</name><parents><item>A</item></parents>",
                  childrenOfA = "<children><item>B</item></children><layout>LA",
                  objectC = "\"C\"><parents/><children/>", listOfLA = "<children><item>LB</item></children>",
                  rotationOfB = "<item>0.500000</item>",
                  absoluteB = "<x>11.000000</x><y>22.000000</y><z>33.000000</z>",
                  labelL = made("Label", "L", "Label", "<name>Mind the gap</name>"), end = "  </Objects>",
                  layoutC = bare("PmLayout", "LC",
                                 "<location><item>0</item><item/><item/></location><rotation><item/><item/>"
                                 "<item/></rotation><children/><parent>NULL</parent><node>C</node>");

TEST(StudyDiff, TellsEachDifferenceOnce) {
  const struct {
    Replacements edits;
    Strings told;
  } cases[] = {
      {{}, {}},
      {{{"PmPartInstance ExternalId=\"B\"", "PmToolInstance GUID=\"G\" ExternalId=\"B\""},
        {"</PmPartInstance>", "</PmToolInstance>"},
        {"<caption>Main body</caption>", "<caption>Main  body</caption><weight>2</weight>"},
        {"<name>Body</name><comment>", "<name> </name><comment>"}},
       {R"(A name name "Body" " ")", R"(A field caption "Main body" "Main  body")",
        R"(A field weight null "2")", R"(B class  "PmPartInstance" "PmToolInstance")",
        R"(B field @GUID null "G")"}},
      // Moved: the lists of both parents follow, and the place in the study stays.
      {{{parentsOfB, "Türgriff</name><parents><item>C</item></parents>"},
        {childrenOfA, "<children/><layout>LA"},
        {objectC, "\"C\"><parents/><children><item>B</item></children><layout>LC</layout>"},
        {listOfLA, "<children/>"},
        {"<parent>LA</parent>", "<parent>LC</parent>"},
        {"<item>1.000000</item><item>2.000000</item><item>3.000000</item>",
         "<item>11</item><item>22</item><item>33</item>"},
        {end, replaced(layoutC, "<node>",
                       "<NodeInfo><absoluteLocation><x/><y/><z/><rx/><ry/><rz/>"
                       "</absoluteLocation></NodeInfo><node>") +
                  end}},
       {"+ PmLayout LC", R"(B parent parents ["A"] ["C"])", R"(C field layout null "LC")"}},
      // Only one side says so.
      {{{childrenOfA, "<children/><layout>LA"}}, {R"(A field children ["B"] [])"}},
      {{{parentsOfB, "Türgriff</name><parents/>"}}, {R"(B parent parents ["A"] [])"}},
      {{{objectC, "\"C\"><parents/>"}}, {"C field children [] null"}},
      {{{"<parent>LA</parent>", "<parent>NULL</parent>"}}, {R"(LB parent parent "LA" "NULL")"}},
      {{{listOfLA, "<children><item>LB</item><item>LX</item></children>"}},
       {R"(LA field children ["LB"] ["LB","LX"])"}},
      // What comes and goes is not told of the lists that hold it.
      {{{labelL, replaced(labelL, "\"L\"", "\"M\"")}, {"<item>L</item>", "<item>M</item>"}},
       {"- Label L", "+ Label M"}},
      {{{"<item>SA</item>", "<item>SX</item><item>SA</item>"},
        {"<item>IA</item>", "<item>IX</item><item>IA</item>"},
        {end,
         "<PmShortcut ExternalId=\"SX\"><parent>S</parent></PmShortcut>"
         "<MarvekStudyInfo ExternalId=\"IX\"/>" +
             end}},
       {"+ PmShortcut SX", "+ MarvekStudyInfo IX"}},
      {{{"<item>IA</item>", "<item>IX</item>"}}, {R"(S field info ["IA"] ["IX"])"}},
      // Placed elsewhere: the object, not what is below it; numbers that do not follow are told.
      {{{"<x>10.000000</x>", "<x>14</x>"},
        {"\"LA\"><location><item>10.000000", "\"LA\"><location><item>14"},
        {"<x>11.000000</x>", "<x>15</x>"},
        {"\"LSA\"><location><item>10.000000</item><item>20.000000",
         "\"LSA\"><location><item>10.0000001</item><item>23"}},
       {"A placement shortcut[SA]/layout 3.000000 0.000000", "A placement layout 4.000000 0.000000"}},
      {{{rotationOfB, "<item>-1.5</item>"}, {"<rz>0.500000</rz>", "<rz>-1.5</rz>"}},
       {"B placement layout 0.000000 2.000000"}},
      {{{absoluteB, "<x>12</x><y>22.000000</y><z>33.000000</z>"}},
       {R"(LB field NodeInfo/absoluteLocation {"x":11.0,"y":22.0,"z":33.0,"roll":0.0,"pitch":0.0,"yaw":0.5})"
        R"( {"x":12.0,"y":22.0,"z":33.0,"roll":0.0,"pitch":0.0,"yaw":0.5})"}},
      {{{rotationOfB, "<item>0.5000001</item>"}}, {}},
      {{{rotationOfB, "<item>nan</item>"}},
       {R"(LB field rotation ["0.000000","0.000000","0.500000"] ["0.000000","0.000000","nan"])"}},
      {{{"<layout>LB</layout>", "<layout>LA</layout>"}},
       {"B placement layout 3.741657 0.500000", R"(B field layout "LB" "LA")"}},
  };
  for (const auto& [edits, told] : cases)
    EXPECT_EQ(diffOf(smallStudy, replaced(smallStudy, edits)), told) << (edits.empty() ? "" : edits[0].first);
}

TEST(StudyDiff, OrderAndWhiteSpaceSayNothing) {
  EXPECT_EQ(
      diffOf(
          dataOf("<P ExternalId='p' G='1'><name>n</name><children/><g><a>1</a><b>2</b></g></P>"
                 "<!-- c --><Q ExternalId='q'>text</Q><P/><P><x>1</x></P>"),
          "<Data><Objects/><Objects command='c'>\n<P> <x>1</x> </P><P/>\n<Q ExternalId='q'><![CDATA[te]]>xt"
          "</Q>\n <P G='1' ExternalId='p'>\n<g>\n<b>2</b> <a>1</a>\n</g><children>\n </children>"
          "<name>n</name>\n</P></Objects><SessionMgrData/></Data>"),
      Strings{});
}

TEST(StudyDiff, FieldsOfAnyShapeAreComparedByPath) {
  const struct {
    std::string before, after;
    Strings told;
  } cases[] = {
      {"<g><a>1</a><a>2</a><b><c>3</c></b></g>",
       "<g><a>1</a><a>3</a><a>4</a></g>",
       {R"(p field g/a[2] "2" "3")", R"(p field g/b {"c":"3"} null)", R"(p field g/a[3] null "4")"}},
      {"<l><item>x</item></l>", "<l> </l>", {R"(p field l ["x"] [])"}},
      {"<l><item>x</item></l>", "<l>x</l>", {R"(p field l ["x"] "x")"}},
      {"<l><item>1</item><item>2</item></l>",
       "<l><item>2</item><item>1</item></l>",
       {R"(p field l ["1","2"] ["2","1"])"}},
      {"<l><item><BrimID><r>1</r></BrimID></item></l>",
       "<l><item><BrimID><r>2</r></BrimID></item></l>",
       {R"(p field l [{"BrimID":{"r":"1"}}] [{"BrimID":{"r":"2"}}])"}},
      // Objects within a list are found by their ids.
      {"<l><item><S ExternalId='1'><a>1</a></S></item><item><S ExternalId='2'/></item></l>",
       "<l><item><S ExternalId='3'/></item><item n='1'><S ExternalId='1'><a>2</a></S></item></l>",
       {R"(p field l ["1","2"] ["3","1"])", R"(p field l[1]@n null "1")", R"(p field l[1]/S/a "1" "2")"}},
      {"<g>some<a/></g>",
       "<g u='m'>more<a/></g>",
       {R"(p field g@u null "m")", R"(p field g/#text "some" "more")"}},
  };
  for (const auto& [before, after, told] : cases)
    EXPECT_EQ(
        diffOf(dataOf("<P ExternalId='p'>" + before + "</P>"), dataOf("<P ExternalId='p'>" + after + "</P>")),
        told)
        << before;
}

TEST(StudyDiff, ObjectsWithoutAnIdOfTheirOwnAreFoundByContent) {
  EXPECT_EQ(
      diffOf(
          dataOf("<P ExternalId='d'><a>1</a></P><P ExternalId='d'><a>2</a></P><P><a>1</a></P>"
                 "<P ExternalId='NULL'><a>2</a></P>"),
          dataOf(
              "<P ExternalId='NULL'><a>2</a></P><P ExternalId=''><a>3</a></P><P ExternalId='d'><a>2</a></P>"
              "<P ExternalId='d'><a>4</a></P><Q ExternalId='d'/>")),
      (Strings{"- P ", "+ P ", "+ Q d", R"(d field a "1" "4")"}));
}

TEST_F(StudyTest, DiffTellsPeopleAndPrograms) {
  const std::string other =
      folder.write("new.xml", replaced(smallStudy, {{"<name>Türgriff</name>", "<name>Griff</name>"},
                                                    {rotationOfB, "<item>0.25</item>"},
                                                    {"<rz>0.500000</rz>", "<rz>0.25</rz>"},
                                                    {labelL, ""},
                                                    {"<item>L</item>", ""}}));
  const Outcome json = run({"diff", file, other, "--json"});
  EXPECT_EQ(json.exitCode, 1);
  EXPECT_EQ(json.json(), nlohmann::json::parse(R"({"equal": false, "added": [],
      "removed": [{"id": "L", "class": "Label", "name": "Mind the gap"}],
      "changed": [{"id": "B", "changes": [
        {"kind": "name", "path": "name", "old": "Türgriff", "new": "Griff"},
        {"kind": "placement", "path": "layout", "length": 0.0, "angle": 0.25,
         "old": {"x": 1.0, "y": 2.0, "z": 3.0, "roll": 0.0, "pitch": 0.0, "yaw": 0.5},
         "new": {"x": 1.0, "y": 2.0, "z": 3.0, "roll": 0.0, "pitch": 0.0, "yaw": 0.25}}]}]})"));
  EXPECT_EQ(run({"diff", file, other}).out,
            "removed  Label \"L\", Mind the gap\n"
            "changed  PmPartInstance \"B\", Türgriff\n"
            "    name       \"Türgriff\" -> \"Griff\"\n"
            "    placement  by 0 and 0.25 rad, from x 1  y 2  z 3   roll 0  pitch 0  yaw 0.5"
            " to x 1  y 2  z 3   roll 0  pitch 0  yaw 0.25\n"
            "1 removed, 0 added, 1 changed\n");
  EXPECT_EQ(
      run({"diff", file, other, "--tolerance-angle", "0.3", "--json"}).json()["changed"][0]["changes"].size(),
      1u);
  EXPECT_EQ(run({"diff", file, file}).out, "no object differs\n");
  EXPECT_EQ(run({"diff", file, file}).exitCode, 0);
}

}  // namespace
