#include "Random.h"

#include <bit>

namespace zelgen {

Random::Random(std::uint64_t seed) {
  // The four words come from splitmix64, as the generator's authors advise: its state must not be all zero.
  for (auto& word : state_) {
    word = scatter(seed);
    seed += 0x9E3779B97F4A7C15u;
  }
}

std::uint64_t Random::next() {
  const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
  const std::uint64_t shifted = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= shifted;
  state_[3] = std::rotl(state_[3], 45);
  return result;
}

std::uint32_t Random::below(std::uint32_t bound) {
  // Multiply and shift; the few values that would favour low results are drawn again.
  std::uint64_t product = (next() >> 32) * bound;
  if (static_cast<std::uint32_t>(product) < bound) {
    const std::uint32_t threshold = (0u - bound) % bound;
    while (static_cast<std::uint32_t>(product) < threshold) product = (next() >> 32) * bound;
  }
  return static_cast<std::uint32_t>(product >> 32);
}

std::uint32_t Random::between(std::uint32_t low, std::uint32_t high) { return low + below(high - low + 1); }

}  // namespace zelgen
