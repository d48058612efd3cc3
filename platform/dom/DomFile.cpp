#include "DomFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace dom {

FileCalls fileCalls = {
    [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    ::write,
    ::fchmod,
    ::fsync,
    ::close,
    ::rename,
    ::unlink,
    [](int file) { return ::flock(file, LOCK_EX | LOCK_NB); },
};

namespace {

constexpr std::size_t bufferSize = std::size_t{64} << 10;

std::string because(const char* what, int error) { return std::string(what) + ": " + std::strerror(error); }

class FileSink : public TextSink {
 public:
  explicit FileSink(int file) : file_(file) {}

  bool write(std::string_view piece) override {
    while (!piece.empty()) {
      const ssize_t done = fileCalls.write(file_, piece.data(), piece.size());
      if (done < 0 && errno == EINTR) continue;
      if (done <= 0) {
        if (done == 0) errno = EIO;
        return false;
      }
      piece.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
  }

 private:
  int file_;
};

// The file that a link stands for in the end, though it be missing yet.
std::filesystem::path followed(std::filesystem::path path) {
  std::error_code error;
  for (int hops = 0; hops < 40 && std::filesystem::is_symlink(path, error); ++hops) {
    const std::filesystem::path to = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / to;  // an absolute `to` replaces it all
  }
  return path;
}

// A save that was killed leaves its temporary file behind. The name follows from the target's, so that the
// next save of the same file meets it; its own name may be as long as the system allows, and is no part of
// it.
std::string temporaryName(const std::filesystem::path& target, int attempt) {
  const std::string fileName = target.filename().string();
  std::uint64_t hash = 0xCBF29CE484222325u;  // FNV-1a
  for (const char c : fileName) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  char suffix[40];
  std::snprintf(suffix, sizeof suffix, ".save.%016llx.%d.tmp", static_cast<unsigned long long>(hash),
                attempt);
  return (target.parent_path() / suffix).string();
}

// A temporary file is locked by the process that writes it, as long as that lives: one that can be locked is
// left over. True when the name is free now.
bool removeLeftover(const std::string& name) {
  const int file = ::open(name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return errno == ENOENT;
  struct stat held = {};
  struct stat named = {};
  // Whoever has made the file anew in the meantime holds another one under its name.
  const bool removed = fileCalls.lock(file) == 0 && ::fstat(file, &held) == 0 &&
                       ::lstat(name.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
                       held.st_dev == named.st_dev && fileCalls.remove(name.c_str()) == 0;
  ::close(file);
  return removed;
}

int openTemporary(const std::filesystem::path& target, std::string& name) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = temporaryName(target, attempt);
    int file = -1;
    do {
      file = fileCalls.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (file < 0 && errno == EEXIST && removeLeftover(name));
    if (file < 0 && errno != EEXIST) return file;
    if (file < 0) continue;
    // Another save may take it for a leftover until it is locked. Where there are no locks, none does.
    struct stat own = {};
    const bool taken = fileCalls.lock(file) != 0 && errno == EWOULDBLOCK;
    if (!taken && ::fstat(file, &own) == 0 && own.st_nlink > 0) return file;
    fileCalls.close(file);
  }
  errno = EEXIST;
  return -1;
}

}  // namespace

FileSource::FileSource(const std::string& fileName) : file_(::open(fileName.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (file_ < 0) reason = because("cannot open the file", errno);
  if (file_ >= 0) buffer_.resize(bufferSize);
}

FileSource::~FileSource() {
  if (file_ >= 0) ::close(file_);
}

std::ptrdiff_t FileSource::read(char* to, std::size_t size) {
  if (file_ < 0) return -1;
  if (from_ == until_) {
    ssize_t got;
    do {
      got = ::read(file_, buffer_.data(), buffer_.size());
    } while (got < 0 && errno == EINTR);
    if (got < 0) {
      reason = because("cannot read the file", errno);
      return -1;
    }
    from_ = 0;
    until_ = static_cast<std::size_t>(got);
  }
  const std::size_t count = std::min(size, until_ - from_);
  std::memcpy(to, buffer_.data() + from_, count);
  from_ += count;
  return static_cast<std::ptrdiff_t>(count);
}

bool saveXml(const Node* document, const std::string& fileName, std::string& reason) {
  const std::filesystem::path target = followed(fileName);
  struct stat former = {};
  const bool present = ::stat(target.c_str(), &former) == 0;
  if (present && !S_ISREG(former.st_mode)) {
    reason = "the target is not a regular file";
    return false;
  }
  // A rename would pass over the write protection of a file.
  if (present && ::access(target.c_str(), W_OK) != 0) {
    reason = because("cannot write the file", errno);
    return false;
  }

  std::string temporary;
  int file = openTemporary(target, temporary);
  if (file < 0) {
    reason = because("cannot create a temporary file beside it", errno);
    return false;
  }
  const auto abandon = [&](const char* what) {
    reason = because(what, errno);
    if (file >= 0) fileCalls.close(file);
    fileCalls.remove(temporary.c_str());
    return false;
  };
  FileSink sink(file);
  if (!writeXml(document, sink)) return abandon("cannot write the temporary file");
  if (present && fileCalls.changeMode(file, former.st_mode & 07777) != 0) {
    return abandon("cannot give the temporary file the permissions of the file");
  }
  if (fileCalls.sync(file) != 0) return abandon("cannot flush the temporary file to the disk");
  if (fileCalls.close(std::exchange(file, -1)) != 0) return abandon("cannot close the temporary file");
  if (fileCalls.rename(temporary.c_str(), target.c_str()) != 0) {
    return abandon("cannot rename the temporary file onto it");
  }
  // The new file stands, whole. What is left is to have its name on the disk too; a file system that cannot
  // do that will show the former file or the new one after a crash, so its refusal is no failure of the save.
  const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
  const int directory = fileCalls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (directory >= 0) {
    fileCalls.sync(directory);
    fileCalls.close(directory);
  }
  return true;
}

}  // namespace dom
