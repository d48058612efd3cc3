#include "files/FileLock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include "files/FileCalls.h"

namespace files {

bool isNamed(int file, const std::string& name) {
  struct stat held = {};
  struct stat named = {};
  return ::fstat(file, &held) == 0 && ::lstat(name.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
         held.st_dev == named.st_dev;
}

std::string nameBeside(const std::filesystem::path& file, const std::string& ending) {
  const std::string fileName = file.filename().string();
  std::uint64_t hash = 0xCBF29CE484222325u;  // FNV-1a
  for (const char c : fileName) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  char text[32];
  std::snprintf(text, sizeof text, ".save.%016llx.", static_cast<unsigned long long>(hash));
  return (file.parent_path() / (text + ending)).string();
}

namespace {

constexpr int names = 10;
constexpr int stuck = 50;  // looks at a name that another user may be about to open to all

int openLock(const std::string& name) {
  constexpr int flags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  // Some file systems lock only what is open for writing.
  int file = fileCalls.open(name.c_str(), O_RDWR | flags, 0);
  if (file < 0 && errno == EACCES) file = fileCalls.open(name.c_str(), O_RDONLY | flags, 0);
  if (file >= 0 || errno != ENOENT) return file;
  file = fileCalls.open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | flags, 0666);
  if (file >= 0) ::fchmod(file, 0666);  // it holds nothing, and other users are to meet it
  return file;
}

bool isRegular(int file) {
  struct stat status = {};
  return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

bool FileLock::take(const std::filesystem::path& target) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  int number = 0;
  for (int looks = 1; number < names; ++looks) {
    name_ = nameBeside(target, std::to_string(number) + ".lock");
    file_ = openLock(name_);
    if (file_ < 0) {
      const int error = errno;
      if (error == EEXIST) continue;  // another one was faster
      const bool isOthers = error == EACCES && ::access(name_.c_str(), F_OK) == 0;
      if (!isOthers && error != ELOOP && error != EISDIR && error != ENXIO) {
        errno = error;
        return false;
      }
      if (isOthers && looks < stuck) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        continue;
      }
    } else if (isRegular(file_)) {
      const bool locked = fileCalls.lock(file_) == 0;
      const bool busy = !locked && errno == EWOULDBLOCK;
      if (!locked && !busy) return true;  // there are no locks here
      // Whoever held it before has removed the name: then it is nobody's lock.
      if (locked && isNamed(file_, name_)) return true;
      fileCalls.close(std::exchange(file_, -1));
      if (!busy) continue;
      if (std::chrono::steady_clock::now() > deadline) {
        errno = EWOULDBLOCK;
        return false;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      continue;
    } else {
      fileCalls.close(std::exchange(file_, -1));
    }
    looks = 0;
    ++number;
  }
  return true;
}

FileLock::~FileLock() {
  if (file_ < 0) return;
  if (isNamed(file_, name_)) fileCalls.remove(name_.c_str());
  fileCalls.close(file_);
}

}  // namespace files
