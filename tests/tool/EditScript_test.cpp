#include "zelstudy/EditScript.h"

#include <gtest/gtest.h>

namespace {

using zelstudy::parseEditScript;
using zelstudy::ScriptError;
using zelstudy::ScriptOperation;
using Words = std::vector<std::string>;

TEST(EditScript, LinesSplitIntoWords) {
  const struct {
    std::string_view line;
    Words words;
  } cases[] = {
      {"", {}},
      {" \t ", {}},
      {"# rename A B", {}},
      {"rename A B", {"rename", "A", "B"}},
      {"\trename   A\tB  ", {"rename", "A", "B"}},
      {"rename A B # why", {"rename", "A", "B"}},
      {"rename A B# why", {"rename", "A", "B"}},
      {"rename A \"B # C\"#D", {"rename", "A", "B # C"}},
      {"rename A \"\"", {"rename", "A", ""}},
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
      {"rename A B\nfly A\n", "2: unknown operation \"fly\"\n"},
      {"Rename A B", "1: unknown operation \"Rename\"\n"},
      {"\n\nrename A", "3: NAME is missing: rename ID NAME\n"},
      {"move", "1: ID is missing: move ID PARENT\n"},
      {"rename A B C", "1: too many words: rename ID NAME\n"},
      {"create 3 A B C D", "1: too many words: create TYPE ID PARENT [CLASS]\n"},
      {"place A 1 2 3 0 0 north", "1: YAW must be a number, not \"north\"\n"},
      {"place A 1 2 3 0 0 0x1", "1: YAW must be a number, not \"0x1\"\n"},
      {"place A 1,5 2 3 0 0 0", "1: X must be a number, not \"1,5\"\n"},
      {"place A nan 2 3 0 0 0", "1: X must be a number, not \"nan\"\n"},
      {"place A 1 2 1e999 0 0 0", "1: Z must be a number, not \"1e999\"\n"},
      {"place A 1 2 3 0 0", "1: YAW is missing: place ID X Y Z ROLL PITCH YAW\n"},
      {"create part A B", "1: TYPE must be a whole number from 0 to 255, not \"part\"\n"},
      {"create 256 A B", "1: TYPE must be a whole number from 0 to 255, not \"256\"\n"},
      {"create -1 A B", "1: TYPE must be a whole number from 0 to 255, not \"-1\"\n"},
      {"rename A \"B", "1: the quote is not closed\n"},
      {"rename A \"B\\", "1: the quote is not closed\n"},
      {"rename A \"B\nC\"",
       "1: the quote is not closed\n2: a quote inside a word: put the whole word in "
       "quotes, with \\\" for this one\n"},
      {"rename A \"B\"C", "1: a blank is missing behind a closing quote\n"},
      {"rename A \"\\x\"", "1: unknown escape: only \\\" \\\\ \\n \\t stand in quotes\n"},
      {"rename A \xC3", "1: the line is not UTF-8\n"},
      {"# \xED\xA0\x80\nrename A B", "1: the line is not UTF-8\n"},
      {"fly\nrename A B\nrename", "1: unknown operation \"fly\"\n3: ID is missing: rename ID NAME\n"},
  };
  for (const auto& [script, errors] : cases) EXPECT_EQ(errorsOf(script), errors) << script;
}

TEST(EditScript, OperationsKeepTheirLinesAndArguments) {
  std::vector<ScriptError> errors;
  const std::vector<ScriptOperation> operations = parseEditScript(
      "\xEF\xBB\xBF# made by hand\r\n"
      "place A +1 -2.5 3e2 0 0 1.570796\r\n"
      "\r\n"
      "create 3 N P\r\n"
      "create 1 N P PmPart",
      errors);
  EXPECT_TRUE(errors.empty());
  ASSERT_EQ(operations.size(), 3u);

  EXPECT_EQ(operations[0].line, 2u);
  EXPECT_EQ(operations[0].operation->name, "place");
  EXPECT_EQ(operations[0].arguments.id(0), ApiPmId("A"));
  const double numbers[] = {1, -2.5, 300, 0, 0, 1.570796};
  for (std::size_t i = 0; i < std::size(numbers); ++i)
    EXPECT_EQ(operations[0].arguments.number(i + 1), numbers[i]) << i;

  EXPECT_EQ(operations[1].line, 4u);
  EXPECT_EQ(operations[1].arguments.nodeType(0), ZEL_COMPOUND_PART);
  EXPECT_EQ(operations[1].arguments.count(), 3u);
  EXPECT_EQ(operations[1].arguments.text(3), "");  // a class that was not given

  EXPECT_EQ(operations[2].line, 5u);
  EXPECT_EQ(operations[2].arguments.text(3), "PmPart");
}

TEST(EditOperations, NamesAreDistinctAndFound) {
  for (const zelstudy::EditOperation& operation : zelstudy::editOperations()) {
    EXPECT_EQ(zelstudy::findEditOperation(operation.name), &operation) << operation.name;
    EXPECT_FALSE(operation.does.empty()) << operation.name;
  }
  EXPECT_EQ(zelstudy::findEditOperation(""), nullptr);
}

// The parameters of no operation yet repeat or mix: the check serves any list of them.
TEST(EditOperations, ParameterListsTakeTheRightNumberOfWords) {
  using zelstudy::Parameter;
  const auto text = zelstudy::ParameterKind::text, number = zelstudy::ParameterKind::number;
  const zelstudy::EditOperation repeats{"order", {{"ID", text, Parameter::repeated}}, "", nullptr};
  const zelstudy::EditOperation mixed{
      "weigh",
      {{"ID", text}, {"KG", number, Parameter::optional}, {"NOTE", text, Parameter::optional}},
      "",
      nullptr};
  EXPECT_EQ(repeats.usage(), "order ID...");
  EXPECT_EQ(mixed.usage(), "weigh ID [KG] [NOTE]");
  const struct {
    const zelstudy::EditOperation& operation;
    Words words;
    std::string_view reason;
  } cases[] = {
      {repeats, {}, "ID is missing: order ID..."},
      {repeats, {"A"}, ""},
      {repeats, {"A", "B", "C"}, ""},
      {mixed, {"A"}, ""},
      {mixed, {"A", "1"}, ""},
      {mixed, {"A", "1", "x"}, ""},
      {mixed, {"A", "x"}, "KG must be a number, not \"x\""},
      {mixed, {"A", "1", "x", "y"}, "too many words: weigh ID [KG] [NOTE]"},
  };
  for (const auto& [operation, words, reason] : cases)
    EXPECT_EQ(operation.refuse(words), reason) << operation.name << ' ' << words.size();
}

}  // namespace
