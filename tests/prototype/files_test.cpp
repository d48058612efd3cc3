#include <gtest/gtest.h>

#include "Folder.h"
#include "api/ApiSysFileAccess.h"

namespace fs = std::filesystem;

namespace {

TEST(FileNames, ADirectoryIsListedAndNothingChangesWhenItCannotBe) {
  const std::string umlaut = "T\xC3\xBCr";
  const files_test::Folder folder;
  const std::string& made = folder.path();
  const fs::path directory = folder.path(umlaut);
  fs::create_directories(directory / "below.jt");
  for (const char* name : {"b.jt", "a.jt", "a.JT", "other\\side.jt"}) std::ofstream(directory / name) << name;
  fs::create_symlink("gone", directory / "0.jt");
  fs::create_symlink("b.jt", directory / "linked.jt");

  const RWCRegexp pattern(".+\\.jt$");
  RWClassicTValOrderedVector<std::string> names;
  const auto list = [&](const std::string& name) {
    std::string text = ApiSysFileAccess::listDir(ApiSysFileName(name), pattern, names, true) ? "" : "false ";
    for (const std::string& found : names) text += found + ";";
    return text;
  };
  const std::string front = made + "\\" + umlaut + "/";
  const std::string listed = front + "a.jt;" + front + "b.jt;" + front + "linked.jt;";
  EXPECT_EQ(list(made + "\\" + umlaut), listed);
  for (const std::string& bad : {made + "/none", made + "/" + umlaut + "/a.jt", std::string()})
    EXPECT_EQ(list(bad), "false " + listed) << bad;

  EXPECT_FALSE(RWCRegexp(".+").matches(std::string(1 << 20, 'a'))) << "would take the stack";
}

}  // namespace
