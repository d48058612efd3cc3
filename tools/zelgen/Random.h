#pragma once

#include <cstdint>

namespace zelgen {

/// One step of the splitmix64 sequence as a pure function: a bijection of 64-bit numbers that scatters
/// neighbours. It derives independent streams and ids from (seed, purpose, index) without any state.
constexpr std::uint64_t scatter(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15u;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
  return value ^ (value >> 31);
}

/// The xoshiro256** generator, written out because the engines' distributions of the standard library
/// differ between libraries: one seed must give the same study on every machine.
class Random {
 public:
  explicit Random(std::uint64_t seed);

  std::uint64_t next();

  /// A whole number in [0, bound), each equally likely. `bound` must not be 0.
  std::uint32_t below(std::uint32_t bound);

  /// A whole number in [low, high], each equally likely.
  std::uint32_t between(std::uint32_t low, std::uint32_t high);

  /// True with the probability percent / 100.
  bool chance(std::uint32_t percent) { return below(100) < percent; }

 private:
  std::uint64_t state_[4];
};

}  // namespace zelgen
