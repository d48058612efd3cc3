#pragma once

#include <sys/types.h>

#include <ctime>

namespace files {

// The calls to the system by which a file is replaced; a test puts its own in, to make the one fail that it
// wants.
struct FileCalls {
  int (*open)(const char* path, int flags, mode_t mode);
  ssize_t (*write)(int file, const void* bytes, size_t size);
  int (*changeOwner)(int file, uid_t owner, gid_t group);
  int (*setAttribute)(int file, const char* name, const void* value, size_t size);
  int (*changeMode)(int file, mode_t mode);
  int (*sync)(int file);
  int (*close)(int file);
  int (*rename)(const char* from, const char* to, bool replace);  // EEXIST where it must not replace
  int (*remove)(const char* path);
  int (*lock)(int file);  // for this open file alone, without waiting
};
extern FileCalls fileCalls;

}  // namespace files
