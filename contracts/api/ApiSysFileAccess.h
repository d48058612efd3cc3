#pragma once

#include <cstdint>
#include <string>

#include "api/ApiSysFileName.h"
#include "rw/RWCRegexp.h"
#include "rw/RWClassicTValOrderedVector.h"

// What the disk tells of directories and files. Names are UTF-8 with separators of either kind; they become
// those of the host here and nowhere before. Answers may be out of date when they arrive: a file that was
// listed may be gone. False leaves the results untouched, and nothing throws on what a disk does.
class ApiSysFileAccess {
 public:
  // Replaces `names` by the files in the directory, not below it, whose own names match, in the order of
  // their bytes; with `withDirectory` each has the directory in front. Links to files count as files. False
  // for a directory that cannot be read to its end, and for an invalid expression.
  static bool listDir(const ApiSysFileName& directory, const RWCRegexp& pattern,
                      RWClassicTValOrderedVector<std::string>& names, bool withDirectory);
  // When a file or directory was written last, in whole seconds since 1970 (UTC), negative before.
  static bool lastWriteTime(const ApiSysFileName& name, std::int64_t& seconds);
};
