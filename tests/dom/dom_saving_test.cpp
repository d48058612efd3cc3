#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "DomFaults.h"
#include "DomTesting.h"
#include "Folder.h"
#include "dom/DomSave.h"

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
    const bool saved = document.save(target_, &error, DomOverwrite::any);
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
  // The second is that of the lock; a temporary file that is on the disk cannot fail to be closed.
  EXPECT_EQ(steps, (std::vector<std::string>{"open", "write", "chmod", "fsync", "open", "rename"}));
}

IXMLDOMDocument loaded(const std::string& file) {
  IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  EXPECT_TRUE(document.load(file, &error)) << error.message();
  return document;
}

// What another program may do to a file between the reading and the save, and whether a save is then refused.
TEST_F(DomSaving, AFileThatWasChangedSinceItWasReadIsNotSavedOver) {
  const std::string other = folder_.path("other.xml"), link = folder_.path("link.xml");
  const struct {
    const char* what;
    std::function<void()> change;
    bool refused;
  } cases[] = {
      {"nothing", [] {}, false},
      {"a text as long, at once", [&] { std::ofstream(target_) << "<b/>"; }, true},
      {"a longer text", [&] { std::ofstream(target_) << "<former/>"; }, true},
      {"another file in its place", [&] { folder_.write("other.xml", "<a/>"), fs::rename(other, target_); },
       true},
      {"other rights", [&] { ::chmod(target_.c_str(), 0604); }, true},
      {"a link to another file",
       [&] {
         fs::remove(target_);
         fs::create_symlink(folder_.write("other.xml", "<a/>"), target_);
       },
       true},
      {"removed", [&] { fs::remove(target_); }, false},
      {"saved by another document", [&] { EXPECT_TRUE(loaded(target_).save(target_)); }, true},
      {"saved through a link",
       [&] {
         fs::create_symlink("study.xml", link);
         EXPECT_TRUE(loaded(link).save(link));
       },
       true},
  };
  for (const auto& [what, change, refused] : cases) {
    for (const std::string& file : {target_, other, link}) fs::remove(file);
    std::ofstream(target_) << "<a/>";
    const IXMLDOMDocument document = loaded(target_);
    EXPECT_TRUE(document.save(folder_.path("copy.xml"))) << "a file of its own";
    change();
    const std::string found = contentOf(target_);
    DomError error;
    EXPECT_EQ(document.save(target_, &error), !refused) << what << ": " << error.message();
    EXPECT_EQ(error.outdated, refused) << what;
    EXPECT_EQ(contentOf(target_), refused ? found : "<a/>") << what;
    ASSERT_TRUE(document.documentElement().putText("mine"));
    EXPECT_TRUE(document.save(target_, &error, DomOverwrite::any)) << what << ": " << error.message();
    EXPECT_TRUE(document.save(target_, &error)) << what << ": known by now; " << error.message();
    EXPECT_EQ(contentOf(target_), "<a>mine</a>") << what;
  }
  EXPECT_TRUE(loaded(target_).save(folder_.path("copy.xml"))) << "any other file is replaced";
}

// Pairs of processes that have read the same file and save it at once: each time one of them is told.
TEST_F(DomSaving, OfTwoAtOnceOneIsTold) {
  for (int pair = 0; pair < 50; ++pair) {
    std::ofstream(target_) << "<a/>";
    std::array<pid_t, 2> children{};
    int gate[2];
    ASSERT_EQ(::pipe(gate), 0);
    for (std::size_t i = 0; i < 2; ++i) {
      children[i] = ::fork();
      if (children[i] != 0) continue;
      ::close(gate[1]);
      const IXMLDOMDocument document = loaded(target_);
      document.documentElement().putText(i == 0 ? "first" : "second");
      DomSave save;
      const bool prepared = save.prepare(document, target_);
      char opened;
      while (::read(gate[0], &opened, 1) < 0) {
      }  // until the parent closes its end
      const bool saved = prepared && save.commit();
      ::_exit(saved ? 0 : save.error().outdated ? 1 : 2);
    }
    ::close(gate[0]);
    ::usleep(static_cast<useconds_t>(pair % 5) * 1000);  // some are ready by then, some not
    ::close(gate[1]);
    std::array<int, 2> codes{};
    for (std::size_t i = 0; i < 2; ++i) {
      int status = 0;
      ::waitpid(children[i], &status, 0);
      codes[i] = WEXITSTATUS(status);
    }
    ASSERT_LE(std::max(codes[0], codes[1]), 1) << "refused for another reason";
    ASSERT_LE(codes[0] + codes[1], 1) << "none was saved";
    const bool first = contentOf(target_).find("first") != std::string::npos;
    // Who read what the other had saved comes second, and may save too.
    ASSERT_TRUE(codes[0] + codes[1] == 0 || codes[first ? 0 : 1] == 0) << "an edit is lost";
    ASSERT_EQ(folder_.files(), std::vector<std::string>{"study.xml"});
  }
}

TEST_F(DomSaving, ATakenNameBlocksNothing) {
  const IXMLDOMDocument document = parsed("<new/>");
  std::ofstream(target_) << "<former/>";
  std::string temporary;
  {
    DomSave save;
    ASSERT_TRUE(save.prepare(document, target_));
    ASSERT_EQ(folder_.files().size(), 2u);
    temporary = folder_.path(folder_.files()[0]);
  }
  const std::string stem = temporary.substr(0, temporary.size() - std::strlen("0.tmp"));
  const std::string victim = folder_.write("victim", "precious");
  std::vector<std::string> planted;
  for (const char* kind : {"tmp", "lock"}) {
    const auto name = [&](int number) {
      return planted.emplace_back(stem + std::to_string(number) + "." + kind);
    };
    fs::create_directory(name(0));
    fs::create_symlink(victim, name(1));
    fs::create_symlink("nowhere", name(2));
    ASSERT_EQ(::mkfifo(name(3).c_str(), 0600), 0);
  }
  // Held by a process that lives.
  const int held = ::open((stem + "4.tmp").c_str(), O_RDWR | O_CREAT, 0600);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  planted.push_back(stem + "4.tmp");
  // Left by processes that do not.
  std::ofstream(stem + "5.tmp") << "half";
  std::ofstream(stem + "4.lock") << "";
  DomError error;
  EXPECT_TRUE(document.save(target_, &error)) << error.message();
  EXPECT_EQ(contentOf(target_), "<new/>");
  EXPECT_EQ(contentOf(victim), "precious");
  EXPECT_FALSE(fs::exists(folder_.path("nowhere")));
  for (const std::string& name : planted) EXPECT_TRUE(fs::exists(fs::symlink_status(name))) << name;
  EXPECT_EQ(folder_.files().size(), planted.size() + 2) << "what was left is gone";
  ::close(held);
  // A hundred of them, and more.
  std::error_code there;
  for (int number = 0; number < 120; ++number)
    for (const char* kind : {".tmp", ".lock"})
      fs::create_directory(stem + std::to_string(number) + kind, there);
  EXPECT_TRUE(document.save(target_, &error)) << error.message();
}

TEST_F(DomSaving, ACircleOfLinksIsRefused) {
  fs::create_symlink("b", folder_.path("a"));
  fs::create_symlink("a", folder_.path("b"));
  DomError error;
  EXPECT_FALSE(parsed("<new/>").save(folder_.path("a"), &error));
  EXPECT_NE(error.reason.find("cannot follow the link"), std::string::npos) << error.message();
  EXPECT_TRUE(fs::is_symlink(folder_.path("a")));
  EXPECT_EQ(folder_.files(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(DomSaving, TheFolderIsFlushedBehindTheLastRename) {
  static std::vector<std::string> calls;
  calls.clear();
  files::fileCalls.rename = [](const char* from, const char* to, bool replace) {
    calls.push_back("rename");
    return Faults::real.rename(from, to, replace);
  };
  files::fileCalls.sync = [](int file) {
    struct stat status = {};
    ::fstat(file, &status);
    calls.push_back(S_ISDIR(status.st_mode) ? "folder" : "file");
    return Faults::real.sync(file);
  };
  DomSave study, changes;
  ASSERT_TRUE(study.prepare(parsed("<a/>"), target_) && changes.prepare(parsed("<b/>"), folder_.path("b")));
  EXPECT_TRUE(study.commit() && changes.commit());
  EXPECT_EQ(calls, (std::vector<std::string>{"file", "file", "rename", "folder", "rename", "folder"}));
}

TEST_F(DomSaving, WhatCannotTakeItsPlaceIsKept) {
  DomSave save;
  ASSERT_TRUE(save.prepare(parsed("<a/>"), target_));
  fs::create_directory(target_);
  EXPECT_FALSE(save.commit());
  const std::string kept = save.keep();
  EXPECT_EQ(contentOf(kept), "<a/>");
  fs::remove(target_);
  EXPECT_TRUE(parsed("<b/>").save(target_));
  EXPECT_EQ(contentOf(kept), "<a/>") << "no later save clears it away";
}

// An access list that lets the user 4321 read, as the system keeps it.
std::string accessList() {
  struct Entry {
    std::uint16_t tag, rights;
    std::uint32_t id;
  };
  const Entry entries[] = {{0x01, 6, ~0u}, {0x02, 4, 4321}, {0x04, 0, ~0u}, {0x10, 4, ~0u}, {0x20, 0, ~0u}};
  const std::uint32_t version = 2;
  return std::string(reinterpret_cast<const char*>(&version), sizeof version) +
         std::string(reinterpret_cast<const char*>(entries), sizeof entries);
}

std::string attribute(const std::string& file, const char* name) {
  char value[256];
  const ssize_t size = ::getxattr(file.c_str(), name, value, sizeof value);
  return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
}

TEST_F(DomSaving, TheNewFileHasWhatTheFormerOneHadBesideItsContent) {
  std::ofstream(target_) << "<former/>";
  ASSERT_EQ(::chmod(target_.c_str(), 0640), 0);
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(target_.c_str(), 1234, 5678), 0);
  }
  const std::string list = accessList();
  const bool hasAttributes = ::setxattr(target_.c_str(), "user.note", "kept", 4, 0) == 0;
  const bool hasLists =
      ::setxattr(target_.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) == 0;
  struct stat former = {}, now = {};
  ASSERT_EQ(::stat(target_.c_str(), &former), 0);
  // While it is written nobody else can read it, whatever the former one allowed.
  static mode_t written;
  written = 07777;
  files::fileCalls.write = [](int file, const void* bytes, std::size_t size) {
    struct stat status = {};
    ::fstat(file, &status);
    written = status.st_mode & 07777;
    return Faults::real.write(file, bytes, size);
  };
  DomSave save;
  ASSERT_TRUE(save.prepare(parsed("<new/>"), target_) && save.commit()) << save.error().message();
  EXPECT_EQ(save.warnings(), std::vector<std::string>());
  EXPECT_EQ(written, 0600u);
  ASSERT_EQ(::stat(target_.c_str(), &now), 0);
  EXPECT_EQ(std::tie(now.st_uid, now.st_gid, now.st_mode),
            std::tie(former.st_uid, former.st_gid, former.st_mode));
  EXPECT_EQ(attribute(target_, "user.note"), hasAttributes ? "kept" : "none");
  EXPECT_EQ(attribute(target_, "system.posix_acl_access"), hasLists ? list : "none");
}

TEST_F(DomSaving, WhatCannotBeKeptIsToldAndGivesNoOneMoreRights) {
  std::ofstream(target_) << "<former/>";
  ASSERT_EQ(::chmod(target_.c_str(), 06664), 0);
  const bool hasAttributes = ::setxattr(target_.c_str(), "user.note", "kept", 4, 0) == 0;
  fs::create_hard_link(target_, folder_.path("second.xml"));
  if (::geteuid() != 0 || !hasAttributes) GTEST_SKIP() << "needs another owner and extended attributes";
  ASSERT_EQ(::chown(target_.c_str(), 1234, 5678), 0);
  ASSERT_EQ(::chmod(target_.c_str(), 06664), 0);
  files::fileCalls.changeOwner = [](int, uid_t, gid_t) {
    errno = EPERM;
    return -1;
  };
  files::fileCalls.setAttribute = [](int, const char*, const void*, std::size_t) {
    errno = EPERM;
    return -1;
  };
  DomSave save;
  ASSERT_TRUE(save.prepare(parsed("<new/>"), target_) && save.commit()) << save.error().message();
  EXPECT_EQ(save.warnings(),
            (std::vector<std::string>{"its group could not be kept: it is 0 now, not 5678",
                                      "its owner could not be kept: it belongs to user 0 now, not 1234",
                                      "extended attributes could not be kept: user.note",
                                      "it had 2 names (hard links): the others keep the former content"}));
  struct stat now = {};
  ASSERT_EQ(::stat(target_.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777u, 0644u);
  EXPECT_EQ(contentOf(folder_.path("second.xml")), "<former/>");
}

TEST_F(DomSaving, KeepsPermissionsAndFollowsLinks) {
  const IXMLDOMDocument document = parsed("<a/>\n");
  const std::string link = folder_.path("link.xml");
  fs::create_symlink("study.xml", link);
  ASSERT_TRUE(document.save(link)) << "a link to a file that is not there yet";
  EXPECT_TRUE(fs::is_symlink(link));
  ASSERT_EQ(::chmod(target_.c_str(), 0640), 0);
  ASSERT_TRUE(document.documentElement().putText("2"));
  ASSERT_TRUE(document.save(link, nullptr, DomOverwrite::any)) << "the rights were changed by another";
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentOf(target_), "<a>2</a>\n");
  struct stat now = {};
  ASSERT_EQ(::stat(target_.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777u, 0640u);
}

}  // namespace
