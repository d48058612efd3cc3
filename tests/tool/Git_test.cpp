#include "tool/ToolRun.h"

// The settings of docs/git.md, as they stand there, in a repository of a test's own.
namespace {

using namespace tool_test;

// What stands between the first fence that begins with `fence` and its end.
std::string block(const std::string& page, const std::string& fence) {
  const std::size_t begin = page.find(fence) + fence.size();
  return page.substr(begin, page.find("```\n", begin) - begin);
}

class Git : public StudyTest {
 protected:
  // What a shell in the repository prints; its error output stands in "err".
  std::string shell(const std::string& script) const {
    const std::string command = "cd " + folder.path("repository") + " && HOME=" + folder.path() +
                                " GIT_CONFIG_NOSYSTEM=1 PATH=$(dirname " ZELSTUDY_PROGRAM "):$PATH sh -e " +
                                folder.write("script", script) + " >" + folder.path("out") + " 2>" +
                                folder.path("err");
    EXPECT_EQ(std::system(command.c_str()), 0) << script << folder.read("err");
    return folder.read("out");
  }
};

TEST_F(Git, ShowsWhatDiffersObjectByObject) {
  if (std::system("git --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "git is not installed";
  const std::string page = files_test::contentOf(ZELXML_SOURCE_DIR "/docs/git.md");
  const auto named = [](const char* name) {
    return replaced(smallStudy, "\"A\"><name>Body<", std::string("\"A\"><name>") + name + "<");
  };
  folder.write("repository/.gitattributes", block(page, "```\n"));
  folder.write("repository/cell.xml", smallStudy);
  folder.write("repository/gone.xml", smallStudy);
  folder.write("repository/page.xml", "<html>\n<p/>\n</html>\n");
  shell("git init -q -b main .; git config user.name Ada; git config user.email ada@example.org\n" +
        block(page, "```sh\n") + "git add .; git commit -qm first");

  folder.write("repository/cell.xml", named("Hull"));
  folder.write("repository/page.xml", "<html>\n<b/>\n</html>\n");
  folder.write("repository/new.xml", smallStudy);
  const std::string told = R"(changed  PmCompoundPart "A", Body
    name  "Body" -> "Hull"
0 removed, 0 added, 1 changed
)";
  const std::string all = "study cell.xml\n" + told +
                          "study gone.xml\nremoved\nstudy new.xml\nadded\nstudy page.xml\n"
                          "--- page.xml\n+++ page.xml\n@@ -1,3 +1,3 @@\n <html>\n-<p/>\n+<b/>\n </html>\n";
  EXPECT_EQ(shell("rm gone.xml; git add .; git diff --no-renames --staged"), all);
  EXPECT_THAT(folder.read("err"), testing::HasSubstr("page.xml: no study: its root element is html"));
  EXPECT_EQ(shell("git commit -qm second; git show --ext-diff --no-renames --format="), all);

  EXPECT_EQ(shell("git mv cell.xml hall.xml; git diff --staged -M"),
            "study cell.xml -> hall.xml\nno object differs\n");
  shell("git reset -q --hard; git checkout -q -b other HEAD~");
  folder.write("repository/cell.xml", named("Keel"));
  EXPECT_EQ(shell("git commit -qam third; git merge -q main >&2 || git diff --ours")
                .find("study cell.xml is not merged\n"),
            0u);
}

}  // namespace
