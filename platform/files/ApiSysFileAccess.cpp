#include "api/ApiSysFileAccess.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <vector>

#include "files/DiskPath.h"

namespace fs = std::filesystem;

bool ApiSysFileAccess::listDir(const ApiSysFileName& directory, const RWCRegexp& pattern,
                               RWClassicTValOrderedVector<std::string>& names, bool withDirectory) {
  if (!pattern.isValid()) return false;
  std::vector<std::string> found;
  std::error_code error;
  fs::directory_iterator at(diskPath(directory.asString(false)), error);
  for (; !error && at != fs::directory_iterator(); at.increment(error)) {
    const std::string name = diskPathText(at->path().filename());
    // A name that holds the other system's separator would not lead back to the file.
    if (!pattern.matches(name) || name.find('\\') != std::string::npos) continue;
    std::error_code vanished;  // then it is no file any more
    if (at->is_regular_file(vanished)) found.push_back(name);
  }
  if (error) return false;
  std::sort(found.begin(), found.end());
  const std::string front = withDirectory ? directory.asString(true) : std::string();
  names.clear();
  for (const std::string& name : found) names.append(front + name);
  return true;
}

bool ApiSysFileAccess::lastWriteTime(const ApiSysFileName& name, std::int64_t& seconds) {
  std::error_code error;
  const auto time = fs::last_write_time(diskPath(name.asString(false)), error);
  if (error) return false;
  seconds = std::chrono::floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(time))
                .time_since_epoch()
                .count();
  return true;
}
