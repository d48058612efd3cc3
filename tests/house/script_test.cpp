// What ./zel asks of other programs, seen by stand-ins that write down how they were called.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

#include "Folder.h"

namespace {

class Script : public testing::Test {
 protected:
  Script() {
    for (const char* program : {"sh", "dirname", "cat", "grep", "nproc"})
      std::filesystem::create_symlink(std::filesystem::path("/usr/bin") / program, folder.path(program));
  }
  void standIn(const char* name, const char* does) const {
    ::chmod(folder.write(name, std::string("#!/bin/sh\n") + does + "\n").c_str(), 0755);
  }
  // The exit code; what it printed stands in "out" and "err".
  int run(const std::string& settings, const std::string& words) const {
    const int status = std::system(("PATH=" + folder.path() + " " + settings + " " ZELXML_SOURCE_DIR "/zel " +
                                    words + " >" + folder.path("out") + " 2>" + folder.path("err"))
                                       .c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  const files_test::Folder folder;
};

TEST_F(Script, WithoutDpkgItStopsWithOneLine) {
  standIn("cmake", "echo built >&2");
  for (const char* command : {"test", "build debug", "demo", "bench"}) {
    EXPECT_EQ(run("", command), 2) << command;
    EXPECT_THAT(folder.read("err"), testing::MatchesRegex("zel: this is no Debian[^\n]*\n")) << command;
  }
}

// The same seed draws the same faults, which stand where they are told.
TEST_F(Script, FaultsAreDrawnBySeed) {
  std::filesystem::create_symlink("/usr/bin/python3", folder.path("python3"));
  if (!std::filesystem::exists(folder.path("python3"))) GTEST_SKIP() << "needs python3";
  standIn("dpkg-query", "printf installed");
  std::string lists[3];
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(run("", "mutate --list --count 200 lib --seed " + std::to_string(i / 2)), 0)
        << folder.read("err");
    lists[i] = folder.read("out");
  }
  EXPECT_EQ(lists[0], lists[1]);
  EXPECT_NE(lists[0], lists[2]);
  EXPECT_THAT(lists[0], testing::MatchesRegex("(lib/[^:\n]*:[0-9]+: [a-z]+: `[^\n]*` => `[^\n]*`\n)*"));
  EXPECT_EQ(std::count(lists[0].begin(), lists[0].end(), '\n'), 200);
}

TEST_F(Script, ABuildElsewhereLeavesTheSourcesAlone) {
  standIn("dpkg-query", "printf installed");
  for (const char* program : {"cmake", "ctest"})
    standIn(program, ("echo " + std::string(program) + " \"$@\" >>\"$BUILD_DIR.log\"").c_str());
  const std::string build = folder.path("build");
  EXPECT_EQ(run("BUILD_DIR=" + build + " CTEST_PARALLEL_LEVEL=1", "test debug -R One"), 0)
      << folder.read("err");
  EXPECT_EQ(folder.read("build.log"), "cmake --preset debug -B " + build + "/debug -DZELXML_TESTS=ON\n" +
                                          "cmake --build " + build + "/debug\n" + "ctest --test-dir " +
                                          build +
                                          "/debug --output-on-failure --no-tests=error -j 1 -R One\n");
}

}  // namespace
