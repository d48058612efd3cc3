#include "zelstudy/SessionSettings.h"

#include <gtest/gtest.h>

namespace {

using zelstudy::SessionSettings;

TEST(SessionSettings, WhatCannotBeTakenIsSaid) {
  const std::string keys = SessionSettings::keys();
  const struct {
    std::string_view setting;
    std::string reason;
  } cases[] = {
      {"mode", "\"mode\" is not KEY=VALUE"},
      {"=1", "unknown key \"\"; the keys are " + keys},
      {"mode=+-1", "mode must be a whole number of 32 bits, not \"+-1\""},
      {"variantFilter=2147483648", "variantFilter must be a whole number of 32 bits, not \"2147483648\""},
      {"localDocument=yes", "localDocument must be true or false, not \"yes\""},
  };
  for (const auto& [setting, reason] : cases) {
    SessionSettings settings;
    EXPECT_EQ(settings.add(setting), reason);
  }
}

}  // namespace
