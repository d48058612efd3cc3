#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "api/ApiSysFileName.h"
#include "api/LocalFilesCacheClientFilesManager.h"

namespace fs = std::filesystem;

namespace {

class FilesCache : public testing::Test {
 protected:
  FilesCache() {
    std::string pattern = (fs::temp_directory_path() / "zelxml.XXXXXX").string();
    const char* made = mkdtemp(pattern.data());
    EXPECT_NE(made, nullptr);
    root_ = pattern;
    fs::create_directories(root_ / "origin");
    EXPECT_TRUE(files().activate(cache()));
  }
  ~FilesCache() override {
    files().activate("");
    std::error_code error;
    fs::remove_all(root_, error);
  }
  static LocalFilesCacheClientFilesManager& files() { return LocalFilesCacheClientFilesManager::the(); }
  std::string cache() const { return (root_ / "cache").string(); }
  std::string origin(const std::string& name) const { return (root_ / "origin" / name).string(); }
  static void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
  }
  static std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "-";
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

  fs::path root_;
};

TEST_F(FilesCache, BringsWhatIsRegistered) {
  write(origin("a/part.jt"), "A");
  write(origin("b/part.jt"), "B");
  write(origin("k\xC3\xA4"
               "fig.jt"),
        "umlaut");
  const std::vector<std::string> names = {origin("a/part.jt"), origin("b/part.jt"), origin("missing.jt"),
                                          origin("k\xC3\xA4"
                                                 "fig.jt"),
                                          origin("a/part.jt")};
  for (const std::string& name : names) EXPECT_TRUE(files().registerFileForDownload(name));
  EXPECT_FALSE(files().registerFileForDownload(""));
  EXPECT_EQ(copyOf(names[0], false), "-");
  EXPECT_FALSE(files().downloadFiles()) << "one is missing";
  const std::string copies[] = {copyOf(names[0], false), copyOf(names[1], false), copyOf(names[3], false)};
  EXPECT_EQ(read(copies[0]), "A");
  EXPECT_EQ(read(copies[1]), "B");
  EXPECT_EQ(read(copies[2]), "umlaut");
  EXPECT_EQ(fs::path(copies[1]).filename(), "part.jt");
  EXPECT_EQ(copies[0].rfind(cache() + "/", 0), 0u);
  std::string local;
  EXPECT_FALSE(files().getDownloadedPath(names[2], local, true));
  EXPECT_EQ(fs::path(local).filename(), "missing.jt");
  EXPECT_TRUE(files().downloadFiles()) << "registrations end with the call";
}

TEST_F(FilesCache, CopiesAgainOnlyWhatChanged) {
  const std::string name = origin("part.jt");
  write(name, "one");
  const std::string copy = copyOf(name, true);
  ASSERT_NE(copy, "-");
  EXPECT_EQ(fs::last_write_time(copy), fs::last_write_time(name));
  // A copy that counts as up to date is not touched: it keeps what was put into it.
  const auto time = fs::last_write_time(copy);
  write(copy, "ONE");
  fs::last_write_time(copy, time);
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(read(copy), "ONE");
  // Same size, another time; then same time, another size.
  fs::last_write_time(name, time + std::chrono::seconds(5));
  EXPECT_EQ(copyOf(name, false), "-");
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(read(copy), "one");
  write(name, "longer");
  fs::last_write_time(name, time + std::chrono::seconds(5));
  EXPECT_EQ(copyOf(name, false), "-");
  EXPECT_EQ(read(copyOf(name, true)), "longer");
  fs::remove(name);
  EXPECT_EQ(copyOf(name, true), "-");
  EXPECT_EQ(read(copy), "longer");
}

TEST_F(FilesCache, MirrorsADirectory) {
  const std::string name = origin("gripper.cojt");
  write(name + "/gripper.jt", "shape");
  write(name + "/more/data.xml", "data");
  write(name + "/turns", "a file");
  write(origin("shared/linked.jt"), "linked");
  fs::create_directory_symlink(origin("shared"), name + "/link");
  const std::string copy = copyOf(name, true);
  EXPECT_EQ(read(copy + "/gripper.jt"), "shape");
  EXPECT_EQ(read(copy + "/more/data.xml"), "data");
  EXPECT_EQ(read(copy + "/link/linked.jt"), "linked");
  EXPECT_EQ(fs::path(copy).filename(), "gripper.cojt");
  // What the origin lacks goes, also where a file turned into a directory.
  fs::remove(name + "/gripper.jt");
  write(name + "/new.jt", "new");
  fs::remove(name + "/turns");
  write(name + "/turns/inner", "inner");
  EXPECT_EQ(copyOf(name, false), "-");
  EXPECT_EQ(copyOf(name, true), copy);
  EXPECT_EQ(read(copy + "/gripper.jt"), "-");
  EXPECT_EQ(read(copy + "/new.jt"), "new");
  EXPECT_EQ(read(copy + "/turns/inner"), "inner");
  EXPECT_EQ(copyOf(name, false), copy);
  EXPECT_EQ(sourceOf(copy), name);
  EXPECT_EQ(sourceOf(copy + "/more/data.xml"), name + "/more/data.xml");
  // With a separator at the end it is another name of the same thing.
  EXPECT_EQ(read(copyOf(name + "/", true) + "/new.jt"), "new");
}

TEST_F(FilesCache, RefusesWhatHasNoPlaceInTheCache) {
  write(origin("part.jt"), "text");
  const std::string copy = copyOf(origin("part.jt"), true);
  const std::string noNames[] = {
      "", "/", "\\", ".", "..", origin(".."), cache() + "\\..", std::string("a\0b", 3)};
  for (const std::string& name : noNames) {
    EXPECT_FALSE(files().registerFileForDownload(name)) << name;
    EXPECT_EQ(copyOf(name, true), "-") << name;
  }
  // A directory that holds the cache cannot be brought into it.
  for (const std::string& name : {root_.string(), cache(), root_.string() + "/"}) {
    EXPECT_EQ(copyOf(name, true), "-") << name;
  }
  EXPECT_EQ(read(copy), "text");
}

TEST_F(FilesCache, TellsTheOriginOfACopy) {
  const std::string name = origin("part.jt");
  write(name, "text");
  write(origin("own.jt"), "own");
  const std::string copy = copyOf(name, true);
  EXPECT_EQ(sourceOf(copy), name);
  for (const std::string& other :
       {name, cache(), cache() + "/part.jt", fs::path(copy).parent_path().string(),
        fs::path(copy).parent_path().string() + "/other.jt", std::string(), cache() + "/../origin/part.jt"}) {
    EXPECT_EQ(sourceOf(other), "-") << other;
  }
  EXPECT_EQ(sourceOf(origin("own.jt")), "-");
  files().setOwnSourcePath(origin("own.jt"));
  EXPECT_EQ(sourceOf(origin("own.jt")), origin("own.jt"));
  // A later run over the same directory knows it too.
  EXPECT_TRUE(files().activate(cache() + "/"));
  EXPECT_EQ(sourceOf(copy), name);
  EXPECT_EQ(copyOf(name, false), copy);
  EXPECT_EQ(sourceOf(origin("own.jt")), "-");
}

TEST_F(FilesCache, TakesNamesOfTheOtherSystem) {
  write(origin("sub/part.jt"), "text");
  const std::string name = root_.string() + "\\origin\\sub\\part.jt";
  const std::string copy = copyOf(name, true);
  EXPECT_EQ(read(copy), "text");
  EXPECT_EQ(fs::path(copy).filename(), "part.jt");
  EXPECT_EQ(sourceOf(copy), name);
}

TEST_F(FilesCache, InactiveItTouchesNothing) {
  write(origin("part.jt"), "text");
  ASSERT_TRUE(files().activate(""));
  EXPECT_FALSE(files().isActive());
  EXPECT_FALSE(files().registerFileForDownload(origin("part.jt")));
  EXPECT_TRUE(files().downloadFiles());
  std::string local = "before";
  EXPECT_FALSE(files().getDownloadedPath(origin("part.jt"), local, true));
  EXPECT_EQ(local, "before");
  EXPECT_FALSE(files().getSourcePath(origin("part.jt"), local));
  EXPECT_TRUE(fs::is_empty(cache()));
  // A directory that cannot be made leaves the client off.
  EXPECT_TRUE(files().activate(cache()));
  EXPECT_FALSE(files().activate(origin("part.jt") + "/below"));
  EXPECT_FALSE(files().isActive());
}

TEST_F(FilesCache, AFailedCopyLeavesTheFormerOne) {
  const std::string name = origin("part.jt");
  write(name, "former");
  const std::string copy = copyOf(name, true);
  // A directory stands where the new copy would be written.
  fs::create_directories(copy + ".part/in the way");
  write(name, "newer text");
  EXPECT_EQ(copyOf(name, true), "-");
  EXPECT_EQ(read(copy), "former");
}

TEST(ApiSysFileName, TakesNamesApart) {
  const struct {
    const char* name;
    const char* asDirectory;
    const char* fileName;
  } cases[] = {{"C:\\data\\part.jt", "C:\\data\\part.jt\\", "part.jt"},
               {"/data/part.jt", "/data/part.jt/", "part.jt"},
               {"C:\\data\\", "C:\\data\\", ""},
               {"C:\\mixed/part.jt", "C:\\mixed/part.jt\\", "part.jt"},
               {"part.jt", "part.jt\\", "part.jt"},
               {"/", "/", ""},
               {"", "", ""}};
  for (const auto& [name, asDirectory, fileName] : cases) {
    EXPECT_EQ(ApiSysFileName(name).asString(false), name);
    EXPECT_EQ(ApiSysFileName(name).asString(true), asDirectory);
    EXPECT_EQ(ApiSysFileName(name).fileName(), fileName);
  }
}

TEST(ApiSysFileName, FindsWhatIsCommonAndWhatIsBelow) {
  const struct {
    const char* name;
    const char* other;
    const char* common;
    const char* below;  // the name relative to the other
  } cases[] = {{"C:\\Data\\a\\p.jt", "C:\\Data", "C:\\Data", "a\\p.jt"},
               {"C:\\Data\\a\\p.jt", "C:\\Data\\", "C:\\Data", "a\\p.jt"},
               {"C:\\Data\\a\\p.jt", "c:/dATA", "C:\\Data", "a\\p.jt"},
               {"C:\\Data\\p.jt", "C:\\Data\\q.jt", "C:\\Data", "C:\\Data\\p.jt"},
               {"C:\\Database\\p.jt", "C:\\Data", "C:", "C:\\Database\\p.jt"},
               {"C:\\Data", "C:\\Data\\", "C:\\Data", ""},
               {"C:\\Data", "C:\\Data\\below", "C:\\Data", "C:\\Data"},
               {"C:\\Data\\p.jt", "D:\\Data", "", "C:\\Data\\p.jt"},
               {"/data/p.jt", "/data", "/data", "p.jt"},
               {"/data/p.jt", "/", "/", "data/p.jt"},
               {"/a", "/b", "/", "/a"},
               {"p.jt", "", "", "p.jt"},
               {"", "C:\\Data", "", ""},
               {"\xC3\x84/p", "\xC3\xA4", "", "\xC3\x84/p"}};
  for (const auto& [name, other, common, below] : cases) {
    EXPECT_EQ(ApiSysFileName(name).commonDir(ApiSysFileName(other)).asString(false), common)
        << name << " " << other;
    EXPECT_EQ(ApiSysFileName(name).relative(ApiSysFileName(other)).asString(false), below)
        << name << " " << other;
  }
}

}  // namespace
