#pragma once

#include <functional>
#include <string_view>

// The log. Nothing is built or printed while nobody listens: callers ask `isActive` before they build a text.
class ApiLogLogger {
 public:
  enum LogLevel : int { error = 0, progress = 1, trace = 2 };
  using Sink = std::function<void(std::string_view category, std::string_view file, int line, int level,
                                  std::string_view text)>;

  static ApiLogLogger* instance();
  ApiLogLogger(const ApiLogLogger&) = delete;
  ApiLogLogger& operator=(const ApiLogLogger&) = delete;

  // Calls above `level` are dropped. A null sink turns the log off.
  void setSink(Sink sink, int level = trace);
  bool isActive(int level) const noexcept { return level <= level_; }
  void addLogCall(std::string_view category, std::string_view file, int line, int level,
                  std::string_view text);

 private:
  ApiLogLogger() = default;
  int level_ = -1;
  Sink sink_;
};

// Logs a text whose expression is evaluated only when somebody listens at that level.
#define ZEL_LOG(category, level, text)                                                 \
  do {                                                                                 \
    if (ApiLogLogger::instance()->isActive(level))                                     \
      ApiLogLogger::instance()->addLogCall(category, __FILE__, __LINE__, level, text); \
  } while (false)
