#include "OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zelgen
