#include "tool/ToolRun.h"

// The command that brings a study file up to date, from outside.
namespace {

using namespace tool_test;
using nlohmann::json;
using testing::HasSubstr;
using ToolUpdateFile = StudyTest;

// The compound of the small study with a new name and without its child.
constexpr std::string_view update = R"(<Data><Objects>
<PmCompoundPart ExternalId="A"><name>New</name><parents/><children/><layout>LA</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>
</Objects></Data>)";

TEST_F(ToolUpdateFile, SavesTheFileOrTellsWhyNot) {
  const std::string target = folder.write("target.xml", smallStudy), made = folder.path("new.xml");
  const std::string other =
      folder.write("other.xml", replaced(smallStudy, "ExternalId=\"S\"", "ExternalId=\"T\""));
  const std::string given = folder.write("update.xml", update), broken = folder.write("broken.xml", "<Data>");
  struct Case {
    std::vector<std::string> arguments;
    int exitCode;
    std::string reason;  // in the answer, if there is one, and on standard error
  };
  const auto arguments = [&](const std::string& to, const std::string& study, const std::string& from,
                             const std::string& root, std::vector<std::string> more = {}) {
    more.insert(more.begin(),
                {"update-file", to, "--study", study, "--update", from, "--root", root, "--json"});
    return more;
  };
  for (const Case& c : std::vector<Case>{
           {arguments(target, other, given, "A", {"-o", made}), 1, "no study object \"S\""},
           {arguments(target, file, given, "Z"), 1, "no object \"Z\""},
           {arguments(broken, file, given, "A"), 2, "broken.xml:1:"},
           {arguments(target, file, given, "A", {"-o", folder.path("none/new.xml")}), 2, "none/new.xml"},
           {arguments(target, file, broken, "A"), 2, "broken.xml:1:"},
           {arguments(target, broken, given, "A"), 2, "broken.xml:1:"},
           {arguments(target, file, given, "A", {"-o", given}), 2,
            "-o " + given + " would overwrite " + given},
           {arguments(file, file, given, "A"), 2, "TARGET " + file + " would overwrite " + file},
       }) {
    const Outcome outcome = run(c.arguments);
    EXPECT_EQ(outcome.exitCode, c.exitCode) << c.reason;
    EXPECT_THAT(outcome.err, HasSubstr(c.reason));
    if (outcome.out.empty()) continue;
    EXPECT_EQ(outcome.json()["result"], false);
    EXPECT_THAT(outcome.json()["reason"].get<std::string>(), HasSubstr(c.reason));
  }
  EXPECT_EQ(folder.read("target.xml"), smallStudy);
  EXPECT_EQ(folder.files().size(), 5u);

  const json told = run(arguments(target, file, given, "A", {"-o", made})).json();
  EXPECT_EQ(told,
            json({{"result", true}, {"reason", nullptr}, {"saved", made}, {"messages", json::array()}}));
  EXPECT_EQ(folder.read("target.xml"), smallStudy);
  const Outcome inPlace = run({"update-file", target, "--study", file, "--update", given, "--root", "A"});
  EXPECT_EQ(inPlace.exitCode, 0) << inPlace.err;
  EXPECT_EQ(inPlace.out, "result  true\nsaved   " + target + "\n");
  EXPECT_EQ(folder.read("target.xml"), folder.read("new.xml"));
  EXPECT_EQ(folder.read("small.xml"), smallStudy) << "the study that the update is of";
  EXPECT_EQ(run({"show", target, "A", "--json"}).json()["name"], "New");
  EXPECT_EQ(run({"show", target, "B"}).exitCode, 1) << "nothing led to B any more";
  EXPECT_EQ(run({"tree", target}).exitCode, 0);
}

TEST_F(ToolUpdateFile, StandardInputStandsForEachOfItsFiles) {
  const std::string target = folder.write("target.xml", smallStudy),
                    given = folder.write("update.xml", update);
  const auto words = [](const std::string& to, const std::string& study, const std::string& from) {
    return std::vector<std::string>{"update-file", to,       "--study", study, "--update",
                                    from,          "--root", "A",       "-o",  "-"};
  };
  const std::string updated = run(words(target, file, given)).out;
  EXPECT_THAT(updated, HasSubstr("<name>New</name>"));
  for (const auto& [arguments, input] : {std::pair{words("-", file, given), smallStudy},
                                         {words(target, "-", given), smallStudy},
                                         {words(target, file, "-"), update}}) {
    const Outcome outcome = run(arguments, input);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, updated) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.err, "result  true\nsaved   standard output\n");
  }
  std::vector<std::string> inPlace = words("-", file, given);
  inPlace.resize(inPlace.size() - 2);
  EXPECT_EQ(run(inPlace, smallStudy).out, updated);
  EXPECT_EQ(run(words("-", "-", given), smallStudy).exitCode, 2);
  EXPECT_EQ(folder.read("target.xml"), smallStudy);
}

}  // namespace
