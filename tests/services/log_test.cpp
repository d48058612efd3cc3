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

class ErrStream : public testing::Test {
 protected:
  ErrStream()
      : former_(apiErr.setSink([this](const ApiErrEntry& entry) { got_.push_back(textOf(entry)); })) {}
  ~ErrStream() override { apiErr.setSink(former_); }

  std::vector<std::string> got_;
  ApiErrStream::Sink former_;
};

TEST_F(ErrStream, HandsFinishedEntriesToTheSink) {
  apiErr.addErrDefinition("TEST_DEFINED", 3, "what it means");
  apiErr.addErrDefinition("TEST_DEFINED", 1, "something else");
  EXPECT_EQ(apiErr.definitionText("TEST_DEFINED"), "what it means");
  EXPECT_EQ(apiErr.definitionText("TEST_UNDEFINED"), "");
  apiErr << ApiErrCode("TEST_DEFINED") << ApiErrPosition{"file.cpp", 7, "Class::operation"} << "one"
         << "" << endErr;
  apiErr << ApiErrCode("TEST_DEFINED") << ApiErrSeverity{0} << endErr;
  apiErr << ApiErrCode("TEST_UNDEFINED") << std::string("text") << endErr;
  // A message that was never ended is dropped by the next code and leaves nothing behind.
  apiErr << ApiErrCode("TEST_LOST") << ApiErrPosition{"lost.cpp", 1, "lost"} << ApiErrSeverity{2} << "lost";
  EXPECT_EQ(got_.size(), 3u);
  apiErr << ApiErrCode("TEST_DEFINED") << endErr;
  EXPECT_EQ(got_,
            (std::vector<std::string>{"TEST_DEFINED@file.cpp:7:Class::operation!3|one|", "TEST_DEFINED@:0:!0",
                                      "TEST_UNDEFINED@:0:!0|text", "TEST_DEFINED@:0:!3"}));
}

TEST_F(ErrStream, ASinkMayRaiseAMessageOfItsOwn) {
  apiErr.setSink([this](const ApiErrEntry& entry) {
    got_.push_back(textOf(entry));
    if (entry.code == "TEST_OUTER") apiErr << ApiErrCode("TEST_INNER") << "inner" << endErr;
  });
  apiErr << ApiErrCode("TEST_OUTER") << "outer" << endErr;
  EXPECT_EQ(got_, (std::vector<std::string>{"TEST_OUTER@:0:!0|outer", "TEST_INNER@:0:!0|inner"}));
  apiErr.setSink(nullptr);
  apiErr << ApiErrCode("TEST_OUTER") << endErr;
  EXPECT_EQ(got_.size(), 2u);
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
  const auto sink = [&got](std::string_view category, std::string_view file, int line, int level,
                           std::string_view what) {
    EXPECT_EQ(category, "Test");
    EXPECT_NE(file.find("log_test.cpp"), std::string_view::npos);
    EXPECT_GT(line, 0);
    got.push_back(std::to_string(level) + std::string(what));
  };
  auto* logger = ApiLogLogger::instance();
  logAll();
  EXPECT_EQ(built, 0);
  logger->setSink(sink, ApiLogLogger::progress);
  logAll();
  EXPECT_EQ(built, 2);
  EXPECT_EQ(got, (std::vector<std::string>{"0error", "1progress"}));
  logger->addLogCall("Test", "log_test.cpp", 1, ApiLogLogger::trace, "above the level");
  EXPECT_EQ(got.size(), 2u);
  logger->setSink(sink);
  logAll();
  EXPECT_EQ(got.back(), "2trace");
  logger->setSink(nullptr);
  EXPECT_FALSE(logger->isActive(ApiLogLogger::error));
  logAll();
  logger->addLogCall("Test", "log_test.cpp", 1, ApiLogLogger::error, "off");
  EXPECT_EQ(built, 5);
  EXPECT_EQ(got.size(), 5u);
}

}  // namespace
