#include "zelstudy/ToolLog.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_color_sinks.h>

#include <array>
#include <memory>

#include "api/ApiLogLogger.h"

namespace zelstudy {

namespace {

constexpr std::array<std::string_view, 3> levelNames = {"error", "progress", "trace"};

// Categories come padded to one width, files with the path they were built from.
std::string_view trimmed(std::string_view category) {
  while (category.ends_with(' ')) category.remove_suffix(1);
  return category;
}
std::string_view baseName(std::string_view file) { return file.substr(file.find_last_of('/') + 1); }

}  // namespace

std::optional<int> readLogLevel(std::string_view text) {
  for (int level = 0; level < static_cast<int>(levelNames.size()); ++level)
    if (text == levelNames[static_cast<std::size_t>(level)] || text == std::to_string(level)) return level;
  return {};
}

void listenToLog(int level) {
  auto logger =
      std::make_shared<spdlog::logger>("zelstudy", std::make_shared<spdlog::sinks::stderr_color_sink_st>());
  logger->set_pattern("%H:%M:%S.%e %^%-5l%$ %v");
  logger->set_level(spdlog::level::trace);
  logger->flush_on(spdlog::level::trace);
  ApiLogLogger::instance()->setSink(
      [logger](std::string_view category, std::string_view file, int line, int callLevel,
               std::string_view text) {
        const auto severity = callLevel <= ApiLogLogger::error      ? spdlog::level::err
                              : callLevel == ApiLogLogger::progress ? spdlog::level::info
                                                                    : spdlog::level::trace;
        logger->log(severity, "{}: {} ({}:{})", trimmed(category), text, baseName(file), line);
      },
      level);
}

}  // namespace zelstudy
