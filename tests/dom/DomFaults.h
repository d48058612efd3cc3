#pragma once

#include <cerrno>
#include <string>

#include "../../platform/files/FileCalls.h"

namespace domtest {

// Makes the call at `failAt` fail, counted over all calls to the system that a save makes.
struct Faults {
  static inline files::FileCalls real = files::fileCalls;
  static inline int calls = 0;
  static inline int failAt = -1;
  static inline int error = ENOSPC;
  static inline std::string failed;

  static bool fails(const char* name) {
    if (calls++ != failAt) return false;
    failed = name;
    errno = error;
    return true;
  }
  static void set(int at) {
    calls = 0;
    failAt = at;
    failed.clear();
    files::fileCalls = {
        [](const char* path, int flags, mode_t mode) {
          return fails("open") ? -1 : real.open(path, flags, mode);
        },
        [](int file, const void* bytes, std::size_t size) -> ssize_t {
          if (fails("write")) return -1;
          return real.write(file, bytes, size > 5 ? size - 5 : size);  // short writes too
        },
        real.changeOwner,
        real.setAttribute,
        [](int file, mode_t mode) { return fails("chmod") ? -1 : real.changeMode(file, mode); },
        [](int file) { return fails("fsync") ? -1 : real.sync(file); },
        [](int file) {
          const bool fail = fails("close");
          const int result = real.close(file);
          if (fail) errno = error;
          return fail ? -1 : result;
        },
        [](const char* from, const char* to, bool replace) {
          return fails("rename") ? -1 : real.rename(from, to, replace);
        },
        real.remove,
        real.lock,
    };
  }
  static void clear() { files::fileCalls = real; }
};

}  // namespace domtest
