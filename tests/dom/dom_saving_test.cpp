#include <sys/stat.h>

#include <cstring>

#include "DomFaults.h"
#include "DomTesting.h"
#include "Folder.h"

using namespace domtest;

namespace {

namespace fs = std::filesystem;
using files_test::contentOf;

class DomSaving : public DomTest {
 protected:
  void TearDown() override {
    Faults::clear();
    DomTest::TearDown();
  }

  const files_test::Folder folder_;
  const std::string target_ = folder_.path("study.xml");
};

TEST_F(DomSaving, EveryFailingStepLeavesTheFormerFileWhole) {
  std::string body;
  for (int i = 0; i < 20000; ++i) body += "<e>text</e>";
  const IXMLDOMDocument document = parsed("<new>" + body + "</new>");
  std::vector<std::string> steps;
  for (int failAt = 0;; ++failAt) {
    std::ofstream(target_) << "<former/>";
    Faults::set(failAt);
    DomError error;
    const bool saved = document.save(target_, &error);
    Faults::clear();
    EXPECT_EQ(folder_.files().size(), 1u) << "a temporary file is left after " << Faults::failed;
    EXPECT_EQ(contentOf(target_), saved ? document.xml() : "<former/>") << Faults::failed;
    if (Faults::failed.empty()) break;
    if (saved) {
      EXPECT_NE(std::find(steps.begin(), steps.end(), "rename"), steps.end())
          << "only what follows the rename may fail unheard, not " << Faults::failed;
      continue;
    }
    steps.push_back(Faults::failed);
    EXPECT_EQ(error.file, target_);
    EXPECT_NE(error.reason.find(std::strerror(ENOSPC)), std::string::npos) << error.message();
  }
  steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
  EXPECT_EQ(steps, (std::vector<std::string>{"open", "write", "chmod", "fsync", "close", "rename"}));
}

TEST_F(DomSaving, KeepsPermissionsAndFollowsLinks) {
  const IXMLDOMDocument document = parsed("<a/>\n");
  const std::string link = folder_.path("link.xml");
  fs::create_symlink("study.xml", link);
  ASSERT_TRUE(document.save(link)) << "a link to a file that is not there yet";
  EXPECT_TRUE(fs::is_symlink(link));
  ASSERT_EQ(::chmod(target_.c_str(), 0640), 0);
  ASSERT_TRUE(document.documentElement().putText("2"));
  ASSERT_TRUE(document.save(link));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentOf(target_), "<a>2</a>\n");
  struct stat now = {};
  ASSERT_EQ(::stat(target_.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777u, 0640u);
}

}  // namespace
