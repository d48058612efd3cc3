#include "tool/ToolRun.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using namespace tool_test;

TEST(CommandLine, ATypingErrorIsAnsweredWithTheNearestCommand) {
  const struct {
    std::vector<std::string> words;
    std::string message;
  } cases[] = {
      {{"inof", "cell.xml"}, "there is no command \"inof\"; did you mean \"info\"?"},
      {{"--json", "updatefile", "a.xml"},
       "there is no command \"updatefile\"; did you mean \"update-file\"?"},
      {{"help", "tre"}, "there is no command \"tre\"; did you mean \"tree\"?"},
      {{"quench"}, "there is no command \"quench\"; zelstudy --help lists them"},
      {{std::string(100'000, 'x')},
       "there is no command \"" + std::string(100'000, 'x') + "\"; zelstudy --help lists them"},
      {{}, "a command is missing; zelstudy --help lists them"},
  };
  for (const auto& [words, message] : cases) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.err, "zelstudy: " + message + "\n");
  }
}

TEST(CommandLine, HelpOfACommandIsFoundByBothOrders) {
  const Outcome tree = run({"tree", "--help"});
  EXPECT_THAT(tree.out, HasSubstr("--depth"));
  EXPECT_EQ(run({"help", "tree"}).out, tree.out);
  const Outcome all = run({"help"});
  EXPECT_EQ(all.exitCode, 0);
  EXPECT_EQ(all.out, run({"--help"}).out);
}

TEST(CommandLine, ZelgenTellsItsVersionAndTakesNoNumberBelowZero) {
  EXPECT_EQ(runProgram(ZELGEN_PROGRAM, {"--version"}).out, "zelgen " ZELSTUDY_VERSION "\n");
  for (const char* option : {"-n", "-s", "--depth", "--shared"}) {
    const Outcome outcome = runProgram(ZELGEN_PROGRAM, {"-n", "100", option, "-1"});
    EXPECT_EQ(outcome.exitCode, 2) << option;
    EXPECT_THAT(outcome.err, HasSubstr("-1 is less than 0")) << option;
    EXPECT_EQ(outcome.out, "");
  }
}

}  // namespace
