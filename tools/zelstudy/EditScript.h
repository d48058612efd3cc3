#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zelstudy/EditOperations.h"

namespace zelstudy {

// An edit script: one operation per line, its words parted by blanks. A word that starts with a double quote
// goes on to the closing one and may hold blanks, "#", and \" \\ \n \t for a quote, a backslash, a line end
// and a tab. Elsewhere "#" starts a comment that ends with the line, and a backslash is a backslash. The text
// is UTF-8; a byte order mark and carriage returns at line ends are passed over.
struct ScriptOperation {
  unsigned line = 0;
  const EditOperation* operation = nullptr;
  Arguments arguments;
};

struct ScriptError {
  unsigned line = 0;
  std::string reason;
};

// The operations of a script in order. `errors` gets all that is wrong with it, in line order: the script may
// run only when there is none.
std::vector<ScriptOperation> parseEditScript(std::string_view text, std::vector<ScriptError>& errors);

// The words of one line. Answers why they cannot be told apart; empty when they can.
std::string splitScriptLine(std::string_view line, std::vector<std::string>& words);

}  // namespace zelstudy
