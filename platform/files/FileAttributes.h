#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

namespace files {

// Gives an open new file what another one has besides its content: owner, group, extended attributes with the
// access list, permissions. What this process may not give is told in `warnings`; a group that could not be
// given gets no more rights than all others have. False, with `errno`, when the permissions cannot be set.
bool takeAttributes(int file, const std::string& former, const struct stat& status,
                    std::vector<std::string>& warnings);

}  // namespace files
