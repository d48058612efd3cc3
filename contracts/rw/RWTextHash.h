#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

// The hash by which texts from outside are looked up: keyed by a secret of the process (SipHash), so that
// nobody can choose texts that meet in one place. It differs from run to run: an order that callers see never
// follows from it.
//
//   std::unordered_map<std::string, Value, RWTextHash, std::equal_to<>>
struct RWTextHash {
  using is_transparent = void;
  // Not noexcept: standard containers then keep the hash instead of calculating it again.
  std::size_t operator()(std::string_view text) const;
};
