#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>

// What tests with random edits draw: ZEL_SEED=n runs a seed again.
struct RandomDraws {
  RandomDraws() {
    const char* asked = std::getenv("ZEL_SEED");
    seed = asked ? std::strtoull(asked, nullptr, 10) : std::random_device{}();
    random.seed(seed);
  }
  std::size_t below(std::size_t count) { return count ? random() % count : 0; }
  // Lengths as the generator has them: a placement keeps six decimals of its angles, so a move by a long way
  // to a place close to the parent is exact only as far as that way goes.
  double length(double most) { return most * (static_cast<double>(below(20001)) - 10000) / 10000; }
  double angle(double most) { return most * (static_cast<double>(below(2001)) / 1000 - 1); }

  std::uint64_t seed;
  std::mt19937_64 random;
};
