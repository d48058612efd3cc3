#include "OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace zelgen {
namespace {

namespace fs = std::filesystem;

class OutputFileTest : public testing::Test {
 protected:
  OutputFileTest() : folder_(fs::temp_directory_path() / ("zelgen_test" + std::to_string(getpid()))) {
    fs::create_directory(folder_);
    std::ofstream(target()) << "former";
  }
  ~OutputFileTest() override { fs::remove_all(folder_); }

  fs::path target() const { return folder_ / "study.xml"; }
  static std::string contentOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  auto filesInFolder() const { return std::distance(fs::directory_iterator(folder_), {}); }

  fs::path folder_;
};

TEST_F(OutputFileTest, ReplacesTheTargetOnlyOnCommit) {
  EXPECT_TRUE(OutputFile(target()).write("half"));
  EXPECT_EQ(contentOf(target()), "former");
  OutputFile file(target());
  EXPECT_TRUE(file.write("the whole study"));
  EXPECT_EQ(contentOf(target()), "former");
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(contentOf(target()), "the whole study");
  EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(OutputFileTest, FollowsASymbolicLinkInsteadOfReplacingIt) {
  const fs::path link = folder_ / "link.xml";
  fs::create_symlink(target(), link);
  OutputFile file(link);
  EXPECT_TRUE(file.write("new") && file.commit());
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentOf(target()), "new");
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
