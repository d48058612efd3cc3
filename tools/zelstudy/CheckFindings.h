#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "zelstudy/StudyCheck.h"

namespace zelstudy {

// Counts all findings and keeps so many: a flood of one kind neither fills the memory nor hides the others.
class CheckFindings {
 public:
  explicit CheckFindings(std::size_t limit) : limit_(limit) {}

  // Counts a finding about the object at this position of the document. True when it is among the first of
  // its rule so far: then `add` is to follow.
  bool count(Rule rule, std::uint32_t object);
  void add(Rule rule, std::uint32_t object, Finding finding);
  CheckResult take();

 private:
  struct Kept {
    std::uint32_t object;
    std::uint32_t order;  // in which it was added
    Finding finding;
    friend bool operator<(const Kept& a, const Kept& b) {
      return a.object != b.object ? a.object < b.object : a.order < b.order;
    }
  };
  struct OfRule {
    std::size_t total = 0;
    std::vector<Kept> kept;
    std::size_t weight = 0;
    std::uint32_t end = 0xFFFFFFFF;  // findings about objects from here on are not among the first
  };

  // Keeps the first of a rule up to this weight, at least one.
  static void trim(OfRule& ofRule, std::size_t weight);

  std::size_t limit_;
  std::uint32_t added_ = 0;
  std::array<OfRule, ruleCount> rules_;
};

}  // namespace zelstudy
