#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "api/ApiSysFileState.h"

// Replaces a file whole or not at all, in two steps, so that several can be made ready before the first takes
// its place. A file that is not there yet is made.
//
//   begin, write...   a temporary file beside the target; nobody but its owner can read it
//   prepare           it gets the attributes of the target and is flushed to the disk
//   commit            it takes the place of the target, and the folder is flushed
//
// A link is followed. Until `commit` has answered true, and after any false, the target is what it was; the
// temporary file goes with this object. One that a killed process has left is removed by the next replacement
// of the same file.
//
// Whoever replaces a file that it has read gives `known`: when the file is not the one any more that the
// latest state of it tells, the replacement is refused. The last look and the taking of the place happen
// under a lock that all programs with this class keep, so that of two that have read the same content only
// one replaces it.
//
// False leaves the cause in `reason`; nothing throws.
class ApiSysFileReplacement {
 public:
  ApiSysFileReplacement();
  ~ApiSysFileReplacement();
  ApiSysFileReplacement(ApiSysFileReplacement&&) noexcept;
  ApiSysFileReplacement& operator=(ApiSysFileReplacement&&) noexcept;

  // A null `known` replaces whatever stands there. Refused: what is no regular file or may not be written.
  bool begin(const std::string& fileName, const ApiSysFileStates* known);
  bool write(std::string_view bytes);
  bool prepare();
  bool commit();

  const std::string& reason() const;
  // Whether the last false came from the file being another than the known one.
  bool isOutdated() const;
  // What of the former file is not as it was, in words: owner, group, extended attributes, other hard links.
  const std::vector<std::string>& warnings() const;
  // Of the file that has been put in place by `commit`.
  const ApiSysFileState& state() const;
  // The path of the temporary file, empty when there is none.
  const std::string& temporary() const;
  // Gives the temporary file up without removing it, under a name that no later replacement clears away:
  // answers that. For what was prepared and could not take its place.
  std::string keep();

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};
