#pragma once

#include <cstddef>
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

struct CheckOptions {
  bool strict = false;  // check also the rules that a healthy study may break
  // Most findings that are kept; 0 for all. One with very long ids counts for several.
  std::size_t limit = 10'000;
};

// How often a rule is broken.
struct CheckCount {
  const CheckRule* rule = nullptr;
  std::size_t count = 0;
};

struct CheckResult {
  // In document order of the objects at fault. Of more than the limit, the first of each rule, with equal
  // shares for the rules.
  std::vector<Finding> findings;
  // Of all that were found, kept or not: each broken rule, in the order of the rules.
  std::vector<CheckCount> counts;
  std::size_t errors = 0;
  std::size_t debris = 0;

  std::size_t total() const { return errors + debris; }
};

// Holds a study document against the rules. The document is only read. The time and the memory grow with the
// number of objects and of fields, whatever their shape; what is kept of the findings is bounded.
CheckResult checkStudy(const IXMLDOMDocument& document, const CheckOptions& options = {});

}  // namespace zelstudy
