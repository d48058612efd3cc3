#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zelstudy {

// `debris` is what an edit leaves behind when it does exactly what it is meant to do: nothing in a study
// stumbles over it. Everything else is an error.
enum class Severity : std::uint8_t { error, debris };
std::string_view severityName(Severity severity);

enum class Rule : std::uint8_t {
  idMissing,
  idDuplicate,
  familyMissing,
  familyClass,
  classMisspelt,
  number,
  location,
  reference,
  referenceLeft,
  referenceKind,
  repeated,
  childWithoutParent,
  parentWithoutChild,
  parentLost,
  resourceInPart,
  cycle,
  labelNode,
  layoutNode,
  layoutShared,
  layoutUnused,
  layoutOrphan,
  layoutParent,
  layoutChildren,
  layoutAlsoListed,
  layoutDetached,
  layoutCleared,
  layoutParentLost,
  layoutChildLost,
  layoutLeft,
  layoutCycle,
  locationAbsolute,
  locationRoot,
  studyLists,
  infoUnlisted,
  infoLayout,
  shortcutParent,
  shortcutTarget,
  shortcutTwice,
  shortcutUnlisted,
  classUnknown,
  layoutMissing,
  layoutNodeMissing,
  referenceOther,
  studySeveral,
};
inline constexpr std::size_t ruleCount = static_cast<std::size_t>(Rule::studySeveral) + 1;

// One rule that holds between any two edits.
struct CheckRule {
  Rule rule;
  Severity severity;
  bool strict;  // checked on demand only
  std::string_view code;
  std::string_view says;
  std::string_view why;
  std::string_view example;  // what a finding looks like
  std::string_view remedy;
};

// In the order of Rule.
std::span<const CheckRule> checkRules();
const CheckRule& checkRule(Rule rule);
// Null for an unknown code.
const CheckRule* findCheckRule(std::string_view code);

}  // namespace zelstudy
