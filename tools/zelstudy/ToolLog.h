#pragma once

#include <optional>
#include <string_view>

namespace zelstudy {

// A level by number or name: 0 error, 1 progress, 2 trace. Empty for any other text.
std::optional<int> readLogLevel(std::string_view text);

// Writes the library's log calls up to `level` to standard error from now on.
void listenToLog(int level);

}  // namespace zelstudy
