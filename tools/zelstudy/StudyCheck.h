#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dom/IXMLDOMDocument.h"
#include "zelstudy/CheckRules.h"

namespace zelstudy {

// Where a document breaks a rule.
struct Finding {
  std::string_view code;
  Severity severity = Severity::error;
  // The object at fault, then the others that matter. Empty for an object without id.
  std::vector<std::string> ids;
  unsigned line = 0;  // of the object at fault; 0 when it was not read from a text
  std::string field;  // of that object; empty when no single one is meant
  std::string text;
  std::string_view remedy;
};

// All findings of a study document, in document order of the objects at fault. The document is only read.
// With `strict` the rules that a healthy study may break are checked too. The time and the memory grow with
// the number of objects.
std::vector<Finding> checkStudy(const IXMLDOMDocument& document, bool strict = false);

}  // namespace zelstudy
