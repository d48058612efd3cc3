#include "tool/ToolRun.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using namespace tool_test;
using ToolSaving = StudyTest;

TEST_F(ToolSaving, StandardInputAndOutputStandForAnyFile) {
  const Outcome piped = run({"edit", "-", folder.write("s", "rename A First"), "-o", "-"}, smallStudy);
  EXPECT_EQ(piped.exitCode, 0) << piped.err;
  EXPECT_EQ(piped.out, replaced(smallStudy, "\"A\"><name>Body<", "\"A\"><name>First<"));
  EXPECT_THAT(piped.err, HasSubstr("\"op\":\"rename\""));
  const Outcome changes = run({"edit", file, "-", "--out", "-", "--in-place"}, "rename A First");
  EXPECT_THAT(changes.out, HasSubstr("<name>First</name>"));
  EXPECT_EQ(folder.read("small.xml"), piped.out);
  EXPECT_EQ(run({"diff", "-", file, "--json"}, smallStudy).json()["changed"].size(), 1u);
  EXPECT_EQ(run({"info", "-", "--json"}, smallStudy).json()["studyId"], "S");
  const Outcome taken = run({"import", file, "-", "--all", "-o", "-", "--json"}, smallStudy);
  EXPECT_THAT(taken.out, testing::StartsWith("<?xml"));
  EXPECT_THAT(taken.err, HasSubstr("\"handled\""));
  for (const std::vector<std::string>& words : {std::vector<std::string>{"edit", "-", "-"},
                                                {"diff", "-", "-"},
                                                {"edit", "-", "s", "--in-place"},
                                                {"edit", file, "s", "-o", "-", "--out", "-"}})
    EXPECT_EQ(run(words, smallStudy).exitCode, 2) << testing::PrintToString(words);
}

TEST_F(ToolSaving, AnAnswerThatCannotBeWrittenSavesNothing) {
  const std::string other = folder.write("other.xml", smallStudy),
                    script = folder.write("s", "rename A First");
  for (const std::string& words : {"edit " + file + " " + script + " --in-place --json",
                                   "import " + file + " " + other + " --all --in-place",
                                   "update " + file + " " + other + " --in-place"}) {
    const std::string err = folder.path("err");
    const int status = std::system((ZELSTUDY_PROGRAM " " + words + " >/dev/full 2>" + err).c_str());
    EXPECT_EQ(WEXITSTATUS(status), 2) << words;
    EXPECT_THAT(folder.read("err"), HasSubstr("standard output cannot be written; nothing is saved"))
        << words;
    EXPECT_EQ(folder.read("small.xml"), smallStudy) << words;
  }
}

// The tool is held between what it has read and its saving: it has to write into a pipe that is full.
TEST_F(ToolSaving, AFileThatWasChangedMeanwhileIsSavedOverByForceAlone) {
  const std::string
      script = folder.write("s", "rename A First"),
      other = folder.write("other.xml", smallStudy),
      update = folder.write(
          "update.xml",
          R"(<Data><Objects><PmCompoundPart ExternalId="A"><name>New</name><parents/><children/><layout>LA</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart></Objects></Data>)");
  for (const std::string& words :
       {"edit " + file + " " + script + " --in-place --out -",
        "update-file " + file + " --study " + other + " --update " + update + " --root A"}) {
    for (const bool force : {false, true}) {
      folder.write("small.xml", smallStudy);
      const std::string command = "(head -c 65536 /dev/zero; " ZELSTUDY_PROGRAM " " + words +
                                  (force ? " --force" : "") + " 2>err; echo $? >code) |" +
                                  "(for i in $(seq 2000); do [ ! -e .*.tmp ] || break; sleep 0.01; done;" +
                                  " echo '<changed/>' >small.xml; cat >/dev/null)";
      ASSERT_EQ(std::system(("cd " + folder.path() + " && " + command).c_str()), 0);
      EXPECT_EQ(folder.read("code"), force ? "0\n" : "2\n") << words << folder.read("err");
      EXPECT_EQ(folder.read("err").find("give --force") != std::string::npos, !force) << words;
      EXPECT_EQ(folder.read("small.xml") == "<changed/>\n", !force) << words;
      EXPECT_EQ(folder.files().size(), 6u) << words;
    }
  }
}

// Editors of one file at the same moment: each edit stands, or its editor was told.
TEST_F(ToolSaving, NoEditOfTwoAtOnceIsLost) {
  for (int pair = 0; pair < 50; ++pair) {
    folder.write("small.xml", smallStudy);
    const std::string command = "for i in A B; do (echo \"rename $i Edited$i\" | " ZELSTUDY_PROGRAM " edit " +
                                file + " - --in-place >/dev/null 2>&1; echo $? >" + folder.path("code") +
                                "$i) & done; wait";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string saved = folder.read("small.xml");
    for (const char* id : {"A", "B"}) {
      const std::string code = folder.read(std::string("code") + id);
      ASSERT_TRUE(code == "0\n" || code == "2\n") << code;
      ASSERT_EQ(saved.find(std::string("Edited") + id) != std::string::npos, code == "0\n") << id;
    }
    ASSERT_THAT(saved, HasSubstr("Edited")) << "both were refused";
    ASSERT_THAT(folder.files(), ElementsAre("codeA", "codeB", "small.xml"));
  }
}

}  // namespace
