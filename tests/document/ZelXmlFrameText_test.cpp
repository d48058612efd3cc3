#include "document/ZelXmlFrameText.h"

#include <gtest/gtest.h>

#include <limits>

#include "document/ZelXmlDom.h"

namespace {

TEST(FrameText, NumbersHaveTenDigitsAndReadBackToTheSameText) {
  using Limits = std::numeric_limits<double>;
  const struct {
    double value;
    const char* text;
  } cases[] = {{0, "0."},
               {-0.0, "0."},
               {Limits::quiet_NaN(), "0."},
               {-Limits::infinity(), "0."},
               {12.5, "12.5"},
               {-3, "-3."},
               {1. / 3, "0.3333333333"},
               {1234567890, "1234567890."},
               {12345678912, "1.234567891e+10"},
               {1e20, "1.e+20"},
               {-1e-7, "-1.e-07"},
               {0.00012, "0.00012"},
               {Limits::max(), "1.797693135e+308"},
               {Limits::denorm_min(), "4.940656458e-324"}};
  for (const auto& c : cases) {
    EXPECT_EQ(zelXmlFormatFrameNumber(c.value), c.text);
    EXPECT_EQ(zelXmlFormatFrameNumber(zelXmlParseDouble(c.text)), c.text);
  }
}

TEST(FrameText, AnyTextReadsAsSixNumbers) {
  const struct {
    const char* text;
    RTVec3D translation, rotation;
  } cases[] = {{"", {}, {}},
               {"1.5_2._0._0._0.25_-1.e-07", {1.5, 2, 0}, {0, 0.25, -1e-7}},
               {"1_2_3_4_5_6_7", {1, 2, 3}, {4, 5, 6}},
               {"2", {2, 2, 2}, {2, 2, 2}},
               {"1_2_3", {1, 2, 3}, {3, 3, 3}},
               {"1_2_", {1, 2, 0}, {0, 0, 0}},
               {"_1__1", {0, 1, 0}, {1, 1, 1}},
               {"1,5_nan_x_-inf", {1, 0, 0}, {0, 0, 0}}};
  for (const auto& c : cases) {
    const RTTran3D location = zelXmlParseFrameText(c.text);
    EXPECT_EQ(location.getTranslation(), c.translation) << c.text;
    EXPECT_EQ(location.getRotationRPY(), c.rotation) << c.text;
  }
  EXPECT_EQ(zelXmlFormatFrameText(zelXmlParseFrameText(cases[1].text)), cases[1].text);
  EXPECT_EQ(zelXmlParseFrameText("1e999").getTranslation().x, std::numeric_limits<double>::max());
}

}  // namespace
