#include "zelstudy/TextOutput.h"

#include <gtest/gtest.h>

#include "zelstudy/Utf8.h"

namespace {

TEST(TextOutput, ControlCharactersBecomeVisible) {
  EXPECT_EQ(zelstudy::printable("Größe\t\x1B[31m\n\x7F\xC2\x9B!"), "Größe␉␛[31m␊␡�!");
}

TEST(Utf8, OnlyWellFormedTextPasses) {
  using namespace std::string_view_literals;
  for (const std::string_view text :
       {"a\t\r\n\x7F"sv, "\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF"sv})
    EXPECT_TRUE(zelstudy::isUtf8(text) && zelstudy::isXmlText(text)) << testing::PrintToString(text);
  for (const std::string_view text : {"a\0b"sv, "\x1F"sv, "\xEF\xBF\xBE"sv})
    EXPECT_TRUE(zelstudy::isUtf8(text) && !zelstudy::isXmlText(text)) << testing::PrintToString(text);
  // No first byte, overlong, surrogate, above U+10FFFF, cut off.
  for (const std::string_view text :
       {"\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv, "\xF0\x8F\xBF\xBF"sv, "\xED\xA0\x80"sv,
        "\xF4\x90\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv, "\xE2\x82"sv, "\xE2\x82 "sv})
    EXPECT_FALSE(zelstudy::isUtf8(text) || zelstudy::isXmlText(text)) << testing::PrintToString(text);
}

}  // namespace
