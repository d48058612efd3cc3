#include "rw/RWCRegexp.h"

#include <cstddef>

// With sanitizers on, GCC 12 takes a move inside of std::regex for a read of what was never written (GCC bug
// 105562).
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>

namespace {

constexpr std::size_t longestText = 4096;

}  // namespace

struct RWCRegexp::Compiled {
  std::regex expression;
};

RWCRegexp::RWCRegexp(std::string_view pattern) {
  try {
    compiled_ = std::make_shared<const Compiled>(Compiled{std::regex(pattern.begin(), pattern.end())});
  } catch (const std::regex_error&) {
    // An invalid expression: compiled_ stays null.
  }
}

bool RWCRegexp::matches(std::string_view text) const {
  if (!compiled_ || text.size() > longestText) return false;
  try {
    return std::regex_search(text.begin(), text.end(), compiled_->expression);
  } catch (const std::regex_error&) {
    return false;  // too much work for this text
  }
}
