#pragma once

#include <cstddef>
#include <ostream>
#include <vector>

#include "zelstudy/EditScript.h"
#include "zelstudy/StudySession.h"

namespace zelstudy {

struct EditOutcome {
  std::size_t done = 0;
  std::size_t refused = 0;
  unsigned refusedLine = 0;  // of the first refused operation
  std::string refusedReason;
};

// Runs the operations on a study and writes a line of JSON for each to `out`: line, op, result, what the
// operation gave or, refused, the reason, and messages if any came up. Without `keepGoing` the first refused
// operation is the last one that runs.
EditOutcome runEdits(StudySession& study, const std::vector<ScriptOperation>& operations, bool keepGoing,
                     std::ostream& out);

}  // namespace zelstudy
