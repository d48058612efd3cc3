#include "zelstudy/Nearest.h"

#include <algorithm>
#include <cstddef>

namespace zelstudy {

namespace {

std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1), above(b.size() + 1), row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) above[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before.swap(above);
    above.swap(row);
  }
  return above[b.size()];
}

}  // namespace

std::string_view nearest(std::string_view word, const std::vector<std::string_view>& candidates) {
  std::string_view found;
  std::size_t least = 0;
  for (const std::string_view candidate : candidates) {
    const std::size_t longer = std::max(word.size(), candidate.size());
    if (longer > 64) continue;  // no name of ours, and the work is the product of both lengths
    const std::size_t away = distance(word, candidate);
    if (away <= (longer + 2) / 3 && (found.empty() || away < least)) {
      found = candidate;
      least = away;
    }
  }
  return found;
}

}  // namespace zelstudy
