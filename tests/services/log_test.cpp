#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "api/ApiErrStream.h"
#include "api/ApiLogLogger.h"

namespace {

std::string textOf(const ApiErrEntry& entry) {
  std::string text = entry.code + "@" + entry.file + ":" + std::to_string(entry.line) + ":" + entry.function +
                     "!" + std::to_string(entry.severity);
  for (const std::string& part : entry.texts) text += "|" + part;
  return text;
}

TEST(ErrStream, HandsFinishedEntriesToASinkThatMayRaiseItsOwn) {
  std::vector<std::string> got;
  const ApiErrStream::Sink former = apiErr.setSink([&got](const ApiErrEntry& entry) {
    got.push_back(textOf(entry));
    if (entry.code == "TEST_OUTER") apiErr << ApiErrCode("TEST_INNER") << "inner" << endErr;
  });
  apiErr.addErrDefinition("TEST_DEFINED", 3, "what it means");
  apiErr << ApiErrCode("TEST_DEFINED") << ApiErrPosition{"file.cpp", 7, "Class::operation"} << "one"
         << "" << endErr;
  apiErr << ApiErrCode("TEST_DEFINED") << ApiErrSeverity{0} << endErr;
  // A message that was never ended is dropped by the next code and leaves nothing behind.
  apiErr << ApiErrCode("TEST_LOST") << ApiErrPosition{"lost.cpp", 1, "lost"} << ApiErrSeverity{2} << "lost";
  apiErr << ApiErrCode("TEST_DEFINED") << endErr;
  apiErr << ApiErrCode("TEST_OUTER") << "outer" << endErr;
  apiErr.setSink(former);
  EXPECT_EQ(got, (std::vector<std::string>{"TEST_DEFINED@file.cpp:7:Class::operation!3|one|",
                                           "TEST_DEFINED@:0:!0", "TEST_DEFINED@:0:!3",
                                           "TEST_OUTER@:0:!0|outer", "TEST_INNER@:0:!0|inner"}));
}

TEST(ApiLogLogger, BuildsNoTextWhileNobodyListens) {
  int built = 0;
  std::vector<std::string> got;
  const auto text = [&built](const char* what) {
    ++built;
    return std::string(what);
  };
  const auto logAll = [&] {
    ZEL_LOG("Test", ApiLogLogger::error, text("error"));
    ZEL_LOG("Test", ApiLogLogger::progress, text("progress"));
    ZEL_LOG("Test", ApiLogLogger::trace, text("trace"));
  };
  const auto sink = [&got](std::string_view category, std::string_view file, int, int level,
                           std::string_view what) {
    EXPECT_EQ(category, "Test");
    EXPECT_NE(file.find("log_test.cpp"), std::string_view::npos);
    got.push_back(std::to_string(level) + std::string(what));
  };
  auto* logger = ApiLogLogger::instance();
  logAll();
  EXPECT_EQ(built, 0);
  logger->setSink(sink, ApiLogLogger::progress);
  logAll();
  EXPECT_EQ(built, 2);
  EXPECT_EQ(got, (std::vector<std::string>{"0error", "1progress"}));
  logger->setSink(nullptr);
  logAll();
  EXPECT_EQ(built, 2);
}

}  // namespace
