#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "DomNames.h"

namespace dom {

// The first match in document order, null when there is none or the text is outside the subset.
Node* selectFirst(Node* context, std::string_view xpath);
// False, `found` untouched, when the text is outside the subset.
bool selectAll(Node* context, std::string_view xpath, std::vector<Node*>& found);

// The same, each handed to `visit` where the walk stands.
bool visitAll(Node* context, std::string_view xpath, const std::function<void(Node*)>& visit);

// A path as it is compiled; DomXPathParser makes it, DomXPath walks by it.
struct Term;

struct Step {
  NameId name;      // or anyName
  bool descendant;  // reached by "//"
  std::vector<Term> terms;
};

struct Path {
  bool absolute = false;
  bool plain = false;  // names of children alone, "a/b/c"
  std::vector<Step> steps;
};

struct Term {
  enum Kind { exists, equal, unequal };

  bool attribute = false;
  Kind kind = exists;
  NameId name = anyName;  // of the attribute
  Path path;
  std::string literal;
};

// A walk keeps one bit per step and one for the match.
inline constexpr std::size_t mostSteps = 62;

bool parsePath(std::string_view xpath, Path& path);

// A search over a whole document for one attribute or child with one value, the form in which objects are
// looked up by id: //*[@name='value'] and //*[name='value']. False for all other texts.
bool parseLookup(std::string_view xpath, bool& attribute, std::string_view& name, std::string_view& value);

}  // namespace dom
