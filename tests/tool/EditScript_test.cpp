#include "zelstudy/EditScript.h"

#include <gtest/gtest.h>

namespace {

using zelstudy::parseEditScript;
using zelstudy::ScriptError;
using Words = std::vector<std::string>;

TEST(EditScript, LinesSplitIntoWords) {
  const struct {
    std::string_view line;
    Words words;
  } cases[] = {
      {"", {}},
      {"# rename A B", {}},
      {"\trename   A\tB  ", {"rename", "A", "B"}},
      {"rename A B # why", {"rename", "A", "B"}},
      {"rename A \"B # C\"#D", {"rename", "A", "B # C"}},
      {R"(rename A "say \"B\" \\ C\n\tD")", {"rename", "A", "say \"B\" \\ C\n\tD"}},
      {R"(rename A C:\new)", {"rename", "A", R"(C:\new)"}},
      {"rename A \"Größe 部品\" Ω", {"rename", "A", "Größe 部品", "Ω"}},
  };
  for (const auto& [line, expected] : cases) {
    Words words;
    EXPECT_EQ(zelstudy::splitScriptLine(line, words), "") << line;
    EXPECT_EQ(words, expected) << line;
  }
}

// What is wrong with each script, as "line: reason" joined by line ends.
std::string errorsOf(std::string_view script) {
  std::vector<ScriptError> errors;
  parseEditScript(script, errors);
  std::string text;
  for (const ScriptError& error : errors) text += std::to_string(error.line) + ": " + error.reason + "\n";
  return text;
}

TEST(EditScript, ErrorsNameTheirLineAndReason) {
  const struct {
    std::string_view script, errors;
  } cases[] = {
      {"create 3 A B C D", "1: too many words: create TYPE ID PARENT [CLASS]\n"},
      {"place A 1 2 3 0 0 north", "1: YAW must be a number, not \"north\"\n"},
      {"place A 1 2 1e999 0 0 0", "1: Z must be a number, not \"1e999\"\n"},
      {"create 256 A B", "1: TYPE must be a whole number from 0 to 255, not \"256\"\n"},
      {"rename A \"B\\", "1: the quote is not closed\n"},
      {"rename A \"B\nC\"",
       "1: the quote is not closed\n2: a quote inside a word: put the whole word in "
       "quotes, with \\\" for this one\n"},
      {"rename A \"B\"C", "1: a blank is missing behind a closing quote\n"},
      {"rename A \"\\x\"", "1: unknown escape: only \\\" \\\\ \\n \\t stand in quotes\n"},
      {"# \xED\xA0\x80\nrename A B", "1: the line is not UTF-8\n"},
      {"fly\nrename A B\nrename", "1: unknown operation \"fly\"\n3: ID is missing: rename ID NAME\n"},
  };
  for (const auto& [script, errors] : cases) EXPECT_EQ(errorsOf(script), errors) << script;
}

}  // namespace
