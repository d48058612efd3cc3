#include "api/ApiLogLogger.h"

#include <utility>

ApiLogLogger* ApiLogLogger::instance() {
  static auto* logger = new ApiLogLogger;
  return logger;
}

void ApiLogLogger::setSink(Sink sink, int level) {
  sink_ = std::move(sink);
  level_ = sink_ ? level : -1;
}

void ApiLogLogger::addLogCall(std::string_view category, std::string_view file, int line, int level,
                              std::string_view text) {
  if (sink_ && isActive(level)) sink_(category, file, line, level, text);
}
