#pragma once

#include <memory>
#include <string_view>

// A regular expression of the ECMAScript kind, for names: over bytes, with regard to letter case. Nothing
// here throws; copies share the expression.
class RWCRegexp {
 public:
  explicit RWCRegexp(std::string_view pattern);

  // False for a pattern that cannot be read; it matches nothing.
  bool isValid() const { return compiled_ != nullptr; }
  // Whether the expression matches anywhere in the text. A text that is longer than a path can be (4,096
  // bytes) never does: the stack that matching takes grows with it.
  bool matches(std::string_view text) const;

 private:
  struct Compiled;
  std::shared_ptr<const Compiled> compiled_;
};
