#include "api/ApiSysFileReplacement.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <utility>

#include "files/FileAttributes.h"
#include "files/FileCalls.h"
#include "files/FileLock.h"
#include "files/FilePlace.h"

namespace files {

FileCalls fileCalls = {
    [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    ::write,
    ::fchown,
    [](int file, const char* name, const void* value, size_t size) {
      return ::fsetxattr(file, name, value, size, 0);
    },
    ::fchmod,
    ::fsync,
    ::close,
    [](const char* from, const char* to, bool replace) {
      if (!replace) {
        const int result = ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
        if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
      }
      return ::rename(from, to);  // also where the file system cannot but replace
    },
    ::unlink,
    [](int file) { return ::flock(file, LOCK_EX | LOCK_NB); },
};

}  // namespace files

namespace fs = std::filesystem;
using files::fileCalls;

namespace {

// A temporary file is locked by the process that writes it, as long as that lives: one that can be locked is
// left over. True when the name is free now. What is no plain file, or another user's, is none of ours.
bool removeLeftover(const std::string& name) {
  struct stat status = {};
  if (::lstat(name.c_str(), &status) != 0) return errno == ENOENT;
  if (!S_ISREG(status.st_mode)) return false;
  const int file = ::open(name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return errno == ENOENT;
  // Whoever has made the file anew in the meantime holds another one under its name.
  const bool removed =
      fileCalls.lock(file) == 0 && files::isNamed(file, name) && fileCalls.remove(name.c_str()) == 0;
  ::close(file);
  return removed;
}

// The names follow from the target's, so that the next replacement of the same file meets what a killed one
// has left. When a hundred are taken, chance finds one.
int openTemporary(const fs::path& target, mode_t mode, std::string& name) {
  constexpr int named = 100;
  constexpr int drawn = 100;
  for (int attempt = 0; attempt < named + drawn; ++attempt) {
    const unsigned number = attempt < named ? static_cast<unsigned>(attempt) : std::random_device{}();
    name = files::nameBeside(target, std::to_string(number) + ".tmp");
    int file = -1;
    do {
      file = fileCalls.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
      if (file < 0 && errno != EEXIST) return file;
    } while (file < 0 && removeLeftover(name));
    if (file < 0) continue;
    // Another one may take it for a leftover until it is locked. Where there are no locks, none does.
    const bool taken = fileCalls.lock(file) != 0 && errno == EWOULDBLOCK;
    if (!taken && files::isNamed(file, name)) return file;
    fileCalls.close(file);
  }
  errno = EEXIST;
  return -1;
}

// Sums the content up; false when it cannot be read.
bool sumUp(const std::string& path, std::uint64_t& sum) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  ApiSysFileState state;
  state.isFresh = true;
  std::string piece(std::size_t{64} << 10, '\0');
  ssize_t got;
  while ((got = ::read(file, piece.data(), piece.size())) > 0 || (got < 0 && errno == EINTR))
    if (got > 0) state.add({piece.data(), static_cast<std::size_t>(got)});
  ::close(file);
  sum = state.sum;
  return got == 0;
}

}  // namespace

struct ApiSysFileReplacement::Work {
  ~Work() { drop(); }

  void drop() {
    if (file >= 0) fileCalls.close(std::exchange(file, -1));
    if (!temporary.empty()) fileCalls.remove(temporary.c_str());
    temporary.clear();
  }
  bool refuse(std::string why) {
    reason = std::move(why);
    return false;
  }
  // By the system, for what `errno` says. Nothing stays.
  bool failed(const char* what) {
    reason = std::string(what) + ": " + std::strerror(errno);
    drop();
    return false;
  }

  // Whether the target, with this status or missing, is what the latest state of it tells. A file that is
  // gone is nobody's work to lose.
  bool isAsKnown(const struct stat* status) {
    if (!hasKnown || !status) return true;
    ApiSysFileState now = state;
    files::setStatus(now, *status);
    const auto hasContentOf = [&](const ApiSysFileState& each) {
      return !each.isFresh || (sumUp(target.string(), now.sum) && now.sum == each.sum);
    };
    for (auto each = known.rbegin(); each != known.rend(); ++each) {
      const bool isSameFile = each->device == now.device && each->inode == now.inode;
      if (!isSameFile && each->place != now.place && each->name != now.name) continue;
      const bool isSame = isSameFile && each->size == now.size && each->modified == now.modified &&
                          each->changed == now.changed && hasContentOf(*each);
      isOutdated = !isSame;
      return isSame;
    }
    return true;
  }

  bool refuseOutdated() {
    drop();
    return refuse("the file has been changed since it was read");
  }

  fs::path target;
  std::string temporary;
  int file = -1;
  bool hasKnown = false;
  ApiSysFileStates known;
  ApiSysFileState state;
  std::string reason;
  bool isOutdated = false;
  std::vector<std::string> warnings;
};

ApiSysFileReplacement::ApiSysFileReplacement() : work_(std::make_unique<Work>()) {}
ApiSysFileReplacement::~ApiSysFileReplacement() = default;
ApiSysFileReplacement::ApiSysFileReplacement(ApiSysFileReplacement&&) noexcept = default;
ApiSysFileReplacement& ApiSysFileReplacement::operator=(ApiSysFileReplacement&&) noexcept = default;

bool ApiSysFileReplacement::begin(const std::string& fileName, const ApiSysFileStates* known) {
  work_ = std::make_unique<Work>();
  Work& work = *work_;
  std::error_code error;
  work.target = files::followed(fileName, error);
  if (error) return work.refuse("cannot follow the link: " + error.message());
  files::setNames(work.state, fileName);
  work.hasKnown = known != nullptr;
  if (known) work.known = *known;
  struct stat former = {};
  const bool present = ::stat(work.target.c_str(), &former) == 0;
  if (present && !S_ISREG(former.st_mode)) return work.refuse("the target is not a regular file");
  // A rename would pass over the write protection of a file.
  if (present && ::access(work.target.c_str(), W_OK) != 0) return work.failed("cannot write the file");
  if (!work.isAsKnown(present ? &former : nullptr)) return work.refuseOutdated();
  // A new file has the permissions of any other new one; of a former one nobody is to read the content yet.
  work.file = openTemporary(work.target, present ? 0600 : 0666, work.temporary);
  if (work.file >= 0) return true;
  work.temporary.clear();
  return work.failed("cannot create a temporary file beside it");
}

bool ApiSysFileReplacement::write(std::string_view bytes) {
  if (work_->file < 0) return false;
  while (!bytes.empty()) {
    const ssize_t done = fileCalls.write(work_->file, bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR) continue;
    if (done == 0) errno = EIO;
    if (done <= 0) return work_->failed("cannot write the temporary file");
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return true;
}

bool ApiSysFileReplacement::prepare() {
  Work& work = *work_;
  if (work.file < 0) return false;
  struct stat former = {};
  if (::stat(work.target.c_str(), &former) == 0 &&
      !files::takeAttributes(work.file, work.target.string(), former, work.warnings))
    return work.failed("cannot give the temporary file the permissions of the file");
  // No other write has this time, to the nanosecond: those of others are of the file system's coarser clock.
  timespec times[2] = {{0, UTIME_OMIT}, {}};
  ::clock_gettime(CLOCK_REALTIME, &times[1]);
  ::futimens(work.file, times);
  return fileCalls.sync(work.file) == 0 || work.failed("cannot flush the temporary file to the disk");
}

bool ApiSysFileReplacement::commit() {
  Work& work = *work_;
  if (work.file < 0) return false;
  {
    files::FileLock lock;
    if (!lock.take(work.target) && (work.hasKnown || errno != EWOULDBLOCK)) {
      if (errno != EWOULDBLOCK) return work.failed("cannot create a lock beside it");
      work.drop();
      return work.refuse("another program has been saving the file for ten seconds");
    }
    for (bool placed = false; !placed;) {
      struct stat former = {};
      const bool present = ::stat(work.target.c_str(), &former) == 0;
      if (present && !S_ISREG(former.st_mode)) return work.refuse("the target is not a regular file");
      if (!work.isAsKnown(present ? &former : nullptr)) return work.refuseOutdated();
      placed = fileCalls.rename(work.temporary.c_str(), work.target.c_str(), present) == 0;
      if (!placed && (present || errno != EEXIST)) {
        return work.refuse(std::string("cannot rename the temporary file onto it: ") + std::strerror(errno));
      }
    }
    work.temporary.clear();
    struct stat now = {};
    if (::fstat(work.file, &now) == 0) files::setStatus(work.state, now);
    // A file system that keeps whole seconds only.
    work.state.isFresh = now.st_mtim.tv_nsec == 0 && sumUp(work.target.string(), work.state.sum);
  }
  fileCalls.close(std::exchange(work.file, -1));
  // The new file stands, whole. What is left is to have its name on the disk too; a file system that cannot
  // do that will show the former file or the new one after a crash, so its refusal is no failure.
  const std::string folder = work.target.has_parent_path() ? work.target.parent_path().string() : ".";
  const int directory = fileCalls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (directory >= 0) {
    fileCalls.sync(directory);
    fileCalls.close(directory);
  }
  return true;
}

const std::string& ApiSysFileReplacement::reason() const { return work_->reason; }
bool ApiSysFileReplacement::isOutdated() const { return work_->isOutdated; }
const std::vector<std::string>& ApiSysFileReplacement::warnings() const { return work_->warnings; }
const ApiSysFileState& ApiSysFileReplacement::state() const { return work_->state; }
const std::string& ApiSysFileReplacement::temporary() const { return work_->temporary; }

std::string ApiSysFileReplacement::keep() {
  Work& work = *work_;
  if (work.temporary.empty()) return {};
  std::string kept = std::exchange(work.temporary, {});
  const std::string lasting = kept + ".kept";
  if (fileCalls.rename(kept.c_str(), lasting.c_str(), false) == 0) kept = lasting;
  work.drop();
  return kept;
}
