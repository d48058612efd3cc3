#pragma once

#include <filesystem>
#include <string>

namespace files {

// Whether this name still stands for the open file.
bool isNamed(int file, const std::string& name);
// A hidden name in the folder of a file that follows from the file's own name: `.save.HASH.ending`. That may
// be as long as the system allows, and is no part of it.
std::string nameBeside(const std::filesystem::path& file, const std::string& ending);

// The lock under which a file takes the place of another: a file beside the target that is there as long as
// somebody holds it. It is held by `flock`, which ends with its process: what a killed one leaves is taken
// over. A name that cannot be opened (a folder, a link, another user's) is passed over for the next one by
// all who meet it; where the file system has no locks there is none.
class FileLock {
 public:
  FileLock() = default;
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Waits for others, who hold it for the moment of a look and a rename. False, with `errno`: EWOULDBLOCK
  // after ten seconds, else why no file could be made.
  bool take(const std::filesystem::path& target);

 private:
  int file_ = -1;
  std::string name_;
};

}  // namespace files
