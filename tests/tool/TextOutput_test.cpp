#include "zelstudy/TextOutput.h"

#include <gtest/gtest.h>

#include <sstream>

#include "zelstudy/Utf8.h"

namespace {

TEST(TextOutput, ControlCharactersBecomeVisible) {
  EXPECT_EQ(zelstudy::printable("Größe\t\x1B[31m\n\x7F\xC2\x9B!"), "Größe␉␛[31m␊␡�!");
}

TEST(TextOutput, NumbersAreShort) {
  const struct {
    double number;
    std::string_view text;
  } cases[] = {{0, "0"},
               {-0., "0"},
               {-1e-9, "0"},
               {1200, "1200"},
               {0.5, "0.5"},
               {-3.25, "-3.25"},
               {1.5707963267, "1.570796"},
               {1e15, "1000000000000000"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(zelstudy::shortNumber(number), text);
}

TEST(TextOutput, ColumnsAlignByCharactersNotBytes) {
  zelstudy::Table table({true});
  table.row({"7", "Größe", "x"});
  table.row({"12", "Ω", ""});
  table.row({"3"});
  std::ostringstream out;
  table.print(out, "> ");
  EXPECT_EQ(out.str(),
            ">  7  Größe  x\n"
            "> 12  Ω      \n"
            ">  3\n");
}

TEST(Utf8, OnlyWellFormedTextPasses) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view text;
    bool utf8, xml;
  } cases[] = {
      {"", true, true},
      {"a\t\r\n\x7F", true, true},
      {"a\0b"sv, true, false},
      {"\x1F", true, false},
      {"\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", true, true},
      {"\xEF\xBF\xBE", true, false},       // U+FFFE
      {"\x80", false, false},              // no first byte
      {"\xC1\xBF", false, false},          // overlong
      {"\xE0\x9F\xBF", false, false},      // overlong
      {"\xF0\x8F\xBF\xBF", false, false},  // overlong
      {"\xED\xA0\x80", false, false},      // surrogate
      {"\xF4\x90\x80\x80", false, false},  // above U+10FFFF
      {"\xF8\x88\x80\x80\x80", false, false},
      {"\xE2\x82", false, false},  // cut off
      {"\xE2\x82 ", false, false},
  };
  for (const auto& [text, utf8, xml] : cases) {
    EXPECT_EQ(zelstudy::isUtf8(text), utf8) << testing::PrintToString(text);
    EXPECT_EQ(zelstudy::isXmlText(text), xml) << testing::PrintToString(text);
  }
}

}  // namespace
