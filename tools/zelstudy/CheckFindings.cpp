#include "zelstudy/CheckFindings.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace zelstudy {

namespace {

// A finding counts for more than one when its texts take more memory than this.
constexpr std::size_t unitBytes = 4096;

std::size_t weightOf(const Finding& finding) {
  std::size_t bytes = finding.text.size();
  for (const std::string& id : finding.ids) bytes += id.size();
  return 1 + bytes / unitBytes;
}

}  // namespace

bool CheckFindings::count(Rule rule, std::uint32_t object) {
  OfRule& ofRule = rules_[static_cast<std::size_t>(rule)];
  ++ofRule.total;
  return object < ofRule.end;
}

void CheckFindings::add(Rule rule, std::uint32_t object, Finding finding) {
  OfRule& ofRule = rules_[static_cast<std::size_t>(rule)];
  ofRule.weight += weightOf(finding);
  ofRule.kept.push_back({object, added_++, std::move(finding)});
  // Twice as many before they are sorted out: so each costs the same on an average.
  if (limit_ != 0 && ofRule.weight >= 2 * limit_) trim(ofRule, limit_);
}

void CheckFindings::trim(OfRule& ofRule, std::size_t weight) {
  std::sort(ofRule.kept.begin(), ofRule.kept.end());
  ofRule.weight = 0;
  auto end = ofRule.kept.begin();
  for (; end != ofRule.kept.end(); ++end) {
    const std::size_t more = weightOf(end->finding);
    if (end != ofRule.kept.begin() && ofRule.weight + more > weight) break;
    ofRule.weight += more;
  }
  if (end == ofRule.kept.end()) return;
  ofRule.end = end->object;
  ofRule.kept.erase(end, ofRule.kept.end());
}

CheckResult CheckFindings::take() {
  CheckResult result;
  std::vector<OfRule*> byWeight;
  for (std::size_t i = 0; i < rules_.size(); ++i) {
    OfRule& ofRule = rules_[i];
    if (ofRule.total == 0) continue;
    const CheckRule& rule = checkRule(static_cast<Rule>(i));
    result.counts.push_back({&rule, ofRule.total});
    (rule.severity == Severity::error ? result.errors : result.debris) += ofRule.total;
    byWeight.push_back(&ofRule);
  }
  // What the rules with few findings leave goes to those with many.
  std::stable_sort(byWeight.begin(), byWeight.end(),
                   [](const OfRule* a, const OfRule* b) { return a->weight < b->weight; });
  std::size_t left = limit_, rules = byWeight.size();
  std::vector<Kept> kept;
  for (OfRule* ofRule : byWeight) {
    if (limit_ != 0) {
      const std::size_t share = left / rules--;
      if (share == 0)
        ofRule->kept.clear();
      else if (ofRule->weight > share)
        trim(*ofRule, share);
      left -= std::min(left, ofRule->kept.empty() ? 0 : ofRule->weight);
    }
    std::move(ofRule->kept.begin(), ofRule->kept.end(), std::back_inserter(kept));
    *ofRule = {};
  }
  std::sort(kept.begin(), kept.end());
  for (Kept& each : kept) result.findings.push_back(std::move(each.finding));
  return result;
}

}  // namespace zelstudy
