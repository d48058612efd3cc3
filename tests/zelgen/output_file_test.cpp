#include "OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "Folder.h"

namespace zelgen {
namespace {

namespace fs = std::filesystem;

class OutputFileTest : public testing::Test {
 protected:
  std::string content() const { return folder.read("study.xml"); }

  const files_test::Folder folder;
  const std::string target = folder.write("study.xml", "former");
};

TEST_F(OutputFileTest, ReplacesTheTargetOnlyOnCommit) {
  EXPECT_TRUE(OutputFile(target).write("half"));
  EXPECT_EQ(content(), "former");
  OutputFile file(target);
  EXPECT_TRUE(file.write("the whole study"));
  EXPECT_EQ(content(), "former");
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(content(), "the whole study");
  EXPECT_EQ(folder.files().size(), 1u);
}

TEST_F(OutputFileTest, FollowsASymbolicLinkInsteadOfReplacingIt) {
  const std::string link = folder.path("link.xml");
  fs::create_symlink(target, link);
  OutputFile file(link);
  EXPECT_TRUE(file.write("new") && file.commit());
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(content(), "new");
}

TEST_F(OutputFileTest, SaysWhyItFailed) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
  OutputFile full("/dev/full");
  EXPECT_TRUE(full.write("too little to leave the buffer"));
  EXPECT_FALSE(full.commit());
  EXPECT_THAT(full.error(), testing::HasSubstr("No space left"));
}

TEST_F(OutputFileTest, ASignalLeavesNothingOfAnUnfinishedFile) {
  const auto isBegun = [this] {
    for (const std::string& name : folder.files())
      if (name != "study.xml" && fs::file_size(folder.path(name)) > 0) return true;
    return false;
  };
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t child = ::fork();
    if (child == 0) {
      ::execl(ZELGEN_PROGRAM, "zelgen", "-n", "20000000", "-o", target.c_str(), nullptr);
      ::_exit(127);
    }
    for (int tries = 0; tries < 2000 && !isBegun(); ++tries) ::usleep(10000);
    EXPECT_TRUE(isBegun());
    ::kill(child, number);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
    EXPECT_THAT(folder.files(), testing::ElementsAre("study.xml")) << number;
    EXPECT_EQ(content(), "former");
  }
}

}  // namespace
}  // namespace zelgen
