#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "../../platform/dom/DomFile.h"
#include "DomTesting.h"

using namespace domtest;

namespace {

namespace fs = std::filesystem;

// Makes the call at `failAt` fail, counted over all calls to the system that a save makes.
struct Faults {
  static inline dom::FileCalls real = dom::fileCalls;
  static inline int calls = 0;
  static inline int failAt = -1;
  static inline std::string failed;

  static bool fails(const char* name) {
    if (calls++ != failAt) return false;
    failed = name;
    errno = ENOSPC;
    return true;
  }
  static void set(int at) {
    calls = 0;
    failAt = at;
    failed.clear();
    dom::fileCalls = {
        [](const char* path, int flags, mode_t mode) {
          return fails("open") ? -1 : real.open(path, flags, mode);
        },
        [](int file, const void* bytes, std::size_t size) -> ssize_t {
          if (fails("write")) return -1;
          return real.write(file, bytes, size > 5 ? size - 5 : size);  // short writes too
        },
        [](int file, mode_t mode) { return fails("chmod") ? -1 : real.changeMode(file, mode); },
        [](int file) { return fails("fsync") ? -1 : real.sync(file); },
        [](int file) {
          const bool fail = fails("close");
          const int result = real.close(file);
          if (fail) errno = ENOSPC;
          return fail ? -1 : result;
        },
        [](const char* from, const char* to) { return fails("rename") ? -1 : real.rename(from, to); },
        real.remove,
    };
  }
  static void clear() { dom::fileCalls = real; }
};

class DomSaving : public DomTest {
 protected:
  void SetUp() override {
    folder_ = fs::path(testing::TempDir()) / ("zelxml_saving_" + std::to_string(::getpid()));
    fs::create_directories(folder_);
    target_ = (folder_ / "study.xml").string();
  }
  void TearDown() override {
    Faults::clear();
    fs::remove_all(folder_);
    DomTest::TearDown();
  }
  std::size_t files() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_;
  std::string target_;
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
    EXPECT_EQ(files(), 1u) << "a temporary file is left after " << Faults::failed;
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
  const std::string link = (folder_ / "link.xml").string();
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
