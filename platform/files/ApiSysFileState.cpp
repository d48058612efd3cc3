#include "api/ApiSysFileState.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "files/FilePlace.h"

namespace files {

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t second = 1'000'000'000;

std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * second + time.tv_nsec; }

}  // namespace

fs::path followed(fs::path path, std::error_code& error) {
  error.clear();
  for (int hops = 0; fs::is_symlink(path, error); ++hops) {
    if (hops == 40) {
      error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
      return path;
    }
    const fs::path to = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / to;  // an absolute `to` replaces it all
  }
  error.clear();  // that there is no such file is no error here
  return path;
}

void setNames(ApiSysFileState& state, const std::string& name) {
  std::error_code error;
  state.name = fs::absolute(name, error).lexically_normal().string();
  const fs::path end = fs::absolute(followed(name, error), error);
  state.place = (fs::weakly_canonical(end.parent_path(), error) / end.filename()).string();
}

void setStatus(ApiSysFileState& state, const struct stat& status) {
  state.device = status.st_dev;
  state.inode = status.st_ino;
  state.size = static_cast<std::uint64_t>(status.st_size);
  state.modified = nanoseconds(status.st_mtim);
  state.changed = nanoseconds(status.st_ctim);
}

}  // namespace files

ApiSysFileState ApiSysFileState::of(const std::string& name, int file) {
  ApiSysFileState state;
  struct stat status = {};
  if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return state;
  files::setNames(state, name);
  files::setStatus(state, status);
  // Clocks of file systems step by some milliseconds, those that know whole seconds only by up to two.
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const bool isCoarse = status.st_mtim.tv_nsec == 0 && status.st_ctim.tv_nsec == 0;
  const std::int64_t step = isCoarse ? 3 * files::second : files::second / 50;
  state.isFresh = files::nanoseconds(now) - std::max(state.modified, state.changed) < step;
  return state;
}

void ApiSysFileState::add(std::string_view content) {
  if (!isFresh) return;
  // FNV-1a
  for (const char c : content) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
}
