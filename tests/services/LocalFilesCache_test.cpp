#include <gtest/gtest.h>

#include <chrono>

#include "Folder.h"
#include "api/ApiSysFileName.h"
#include "api/LocalFilesCacheClientFilesManager.h"

namespace fs = std::filesystem;
using files_test::contentOf;

namespace {

class FilesCache : public testing::Test {
 protected:
  FilesCache() {
    fs::create_directories(folder_.path("origin"));
    EXPECT_TRUE(files().activate(cache()));
  }
  ~FilesCache() override { files().activate(""); }
  static LocalFilesCacheClientFilesManager& files() { return LocalFilesCacheClientFilesManager::the(); }
  std::string cache() const { return folder_.path("cache"); }
  std::string origin(const std::string& name) const { return folder_.path("origin/" + name); }
  // Writes a file below the origin.
  std::string write(const std::string& name, const std::string& text) const {
    return folder_.write("origin/" + name, text);
  }
  // The place of the copy; "-" when the answer is false.
  static std::string copyOf(const std::string& name, bool fetch) {
    std::string local;
    return files().getDownloadedPath(name, local, fetch) ? local : "-";
  }
  static std::string sourceOf(const std::string& local) {
    std::string source;
    return files().getSourcePath(local, source) ? source : "-";
  }

  const files_test::Folder folder_;
};

TEST_F(FilesCache, BringsWhatIsRegistered) {
  write("a/part.jt", "A");
  write("b/p\xC3\xA4rt.jt", "B");
  // The second is a name of the other system.
  const std::string names[] = {origin("a/part.jt"), folder_.path() + "\\origin\\b\\p\xC3\xA4rt.jt",
                               origin("missing.jt"), origin("a/part.jt")};
  for (const std::string& name : names) EXPECT_TRUE(files().registerFileForDownload(name));
  EXPECT_EQ(copyOf(names[0], false), "-");
  EXPECT_FALSE(files().downloadFiles()) << "one is missing";
  const std::string copies[] = {copyOf(names[0], false), copyOf(names[1], false)};
  EXPECT_EQ(contentOf(copies[0]) + contentOf(copies[1]), "AB");
  EXPECT_EQ(fs::path(copies[1]).filename(), "p\xC3\xA4rt.jt");
  EXPECT_EQ(sourceOf(copies[1]), names[1]);
  EXPECT_TRUE(files().downloadFiles()) << "registrations end with the call";
}

TEST_F(FilesCache, CopiesAgainOnlyWhatChanged) {
  const std::string name = write("part.jt", "one");
  const std::string copy = copyOf(name, true);
  // A copy that counts as up to date is not touched: it keeps what was put into it.
  const auto time = fs::last_write_time(copy);
  std::ofstream(copy) << "ONE";
  fs::last_write_time(copy, time);
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(contentOf(copy), "ONE");
  // Same size, another time; then same time, another size.
  fs::last_write_time(name, time + std::chrono::seconds(5));
  EXPECT_EQ(copyOf(name, false), "-");
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(contentOf(copy), "one");
  write("part.jt", "longer");
  fs::last_write_time(name, time + std::chrono::seconds(5));
  EXPECT_EQ(copyOf(name, false), "-");
  EXPECT_EQ(contentOf(copyOf(name, true)), "longer");
  // A copy that fails leaves the former one: nothing to copy; then something stands in the way.
  fs::remove(name);
  EXPECT_EQ(copyOf(name, true), "-");
  fs::create_directories(copy + ".part/in the way");
  write("part.jt", "newer text");
  EXPECT_EQ(copyOf(name, true), "-");
  EXPECT_EQ(contentOf(copy), "longer");
}

TEST_F(FilesCache, MirrorsADirectory) {
  const std::string name = origin("gripper.cojt");
  write("gripper.cojt/gripper.jt", "shape");
  write("gripper.cojt/more/data.xml", "data");
  write("gripper.cojt/turns", "a file");
  write("shared/linked.jt", "linked");
  fs::create_directory_symlink(origin("shared"), name + "/link");
  const std::string copy = copyOf(name, true);
  EXPECT_EQ(contentOf(copy + "/gripper.jt") + contentOf(copy + "/more/data.xml"), "shapedata");
  EXPECT_EQ(contentOf(copy + "/link/linked.jt"), "linked");
  // What the origin lacks goes, also where a file turned into a directory.
  fs::remove(name + "/gripper.jt");
  write("gripper.cojt/new.jt", "new");
  fs::remove(name + "/turns");
  write("gripper.cojt/turns/inner", "inner");
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(contentOf(copy + "/gripper.jt"), "-");
  EXPECT_EQ(contentOf(copy + "/new.jt"), "new");
  EXPECT_EQ(contentOf(copy + "/turns/inner"), "inner");
  EXPECT_EQ(sourceOf(copy + "/more/data.xml"), name + "/more/data.xml");
  // With a separator at the end it is another name of the same thing.
  EXPECT_EQ(contentOf(copyOf(name + "/", true) + "/new.jt"), "new");
}

TEST_F(FilesCache, RefusesWhatHasNoPlaceInTheCache) {
  const std::string copy = copyOf(write("part.jt", "text"), true);
  const std::string noNames[] = {
      "", "/", "\\", ".", "..", origin(".."), cache() + "\\..", std::string("a\0b", 3)};
  for (const std::string& name : noNames) {
    EXPECT_FALSE(files().registerFileForDownload(name)) << name;
    EXPECT_EQ(copyOf(name, true), "-") << name;
  }
  // A directory that holds the cache cannot be brought into it.
  for (const std::string& name : {folder_.path(), cache()}) EXPECT_EQ(copyOf(name, true), "-") << name;
  EXPECT_EQ(contentOf(copy), "text");
}

TEST_F(FilesCache, TellsTheOriginOfACopy) {
  const std::string name = write("part.jt", "text");
  const std::string copy = copyOf(name, true);
  EXPECT_EQ(sourceOf(copy), name);
  for (const std::string& other :
       {name, cache(), fs::path(copy).parent_path().string() + "/other.jt", cache() + "/../origin/part.jt"}) {
    EXPECT_EQ(sourceOf(other), "-") << other;
  }
  files().setOwnSourcePath(origin("own.jt"));
  EXPECT_EQ(sourceOf(origin("own.jt")), origin("own.jt"));
  // A later run over the same directory knows it too.
  EXPECT_TRUE(files().activate(cache() + "/"));
  EXPECT_EQ(sourceOf(copy), name);
  EXPECT_EQ(copyOf(name, false), copy);
  EXPECT_EQ(sourceOf(origin("own.jt")), "-");
}

TEST_F(FilesCache, InactiveItTouchesNothing) {
  write("part.jt", "text");
  ASSERT_TRUE(files().activate(""));
  EXPECT_FALSE(files().registerFileForDownload(origin("part.jt")));
  EXPECT_EQ(copyOf(origin("part.jt"), true), "-");
  EXPECT_TRUE(fs::is_empty(cache()));
}

TEST(ApiSysFileName, FindsWhatIsCommonAndWhatIsBelow) {
  const struct {
    const char *name, *other, *common;
    const char* below;  // the name relative to the other
  } cases[] = {{"C:\\Data\\a\\p.jt", "C:\\Data", "C:\\Data", "a\\p.jt"},
               {"C:\\Data\\a\\p.jt", "c:/dATA", "C:\\Data", "a\\p.jt"},
               {"C:\\Database\\p.jt", "C:\\Data", "C:", "C:\\Database\\p.jt"},
               {"C:\\Data", "C:\\Data\\", "C:\\Data", ""},
               {"C:\\Data\\p.jt", "D:\\Data", "", "C:\\Data\\p.jt"},
               {"/data/p.jt", "/", "/", "data/p.jt"},
               {"p.jt", "", "", "p.jt"},
               {"\xC3\x84/p", "\xC3\xA4", "", "\xC3\x84/p"}};
  for (const auto& [name, other, common, below] : cases) {
    const ApiSysFileName whole(name), base(other);
    EXPECT_EQ(whole.commonDir(base).asString(false), common) << name << " " << other;
    EXPECT_EQ(whole.relative(base).asString(false), below) << name << " " << other;
  }
}

}  // namespace
